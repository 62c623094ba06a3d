// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/localsourceswatch.h"

#include <QFile>
#include <QFileInfo>
#include <QtConcurrent>

#include <utility>

namespace
{
QString readList(const QString &path)
{
    constexpr qint64 MostBytes = 1 << 20;
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.read(MostBytes))
               : QString();
}
} // namespace

LocalSourcesWatch::LocalSourcesWatch(QObject *parent, QString path)
    : QObject(parent)
    , m_path(std::move(path))
{
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &LocalSourcesWatch::refresh);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &LocalSourcesWatch::refresh);
    connect(&m_reading, &QFutureWatcherBase::finished, this, &LocalSourcesWatch::take);
    refresh();
}

void LocalSourcesWatch::watch()
{
    // A file that is replaced falls out of the watch, so its folder is watched too.
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    for (const QString &path : {m_path, QFileInfo(m_path).path()}) {
        if (!watched.contains(path) && QFileInfo::exists(path))
            m_watcher.addPath(path);
    }
}

void LocalSourcesWatch::refresh()
{
    watch();
    m_again = m_reading.isRunning();
    if (!m_again)
        m_reading.setFuture(QtConcurrent::run(&readList, m_path));
}

void LocalSourcesWatch::take()
{
    const QString text = m_reading.result();
    const bool again = m_again;
    if (again)
        refresh();
    const bool isOther = text != m_text;
    m_text = text;
    if (isOther)
        Q_EMIT changed();
    if (!again)
        Q_EMIT refreshed();
}
