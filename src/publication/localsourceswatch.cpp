// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/localsourceswatch.h"

#include <QFile>
#include <QFileInfo>
#include <QHostInfo>
#include <QNetworkInterface>
#include <QtConcurrent>

#include <utility>

namespace
{
QStringList hostsOfThisMachine()
{
    const QString name = QHostInfo::localHostName();
    QStringList hosts{name, name + QLatin1Char('.') + QHostInfo::localDomainName()};
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress &address : addresses)
        hosts += address.toString();
    return hosts;
}

ListedSources readList(const QString &path)
{
    constexpr qint64 MostBytes = 1 << 20;
    QFile file(path);
    const QString text = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly)
                             ? QString::fromUtf8(file.read(MostBytes))
                             : QString();
    return {text, hostsOfThisMachine()};
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
    // The watcher loses a file that is replaced. So it watches the folder too.
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
    const ListedSources sources = m_reading.result();
    const bool again = m_again;
    if (again)
        refresh();
    const bool isOther = !(sources == m_sources);
    m_sources = sources;
    if (isOther)
        Q_EMIT changed();
    if (!again)
        Q_EMIT refreshed();
}
