// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/logtail.h"

#include "files/regularfile.h"

#include <QtConcurrent>

LogTail::LogTail(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(1000);
    connect(&m_timer, &QTimer::timeout, this, &LogTail::readInBackground);
    connect(&m_reading, &QFutureWatcherBase::finished, this, &LogTail::take);
}

void LogTail::setFile(const QString &path)
{
    if (path == m_path)
        return;
    m_path = path;
    m_text.clear();
    Q_EMIT changed(m_text);
    if (path.isEmpty()) {
        m_timer.stop();
        return;
    }
    m_timer.start();
    readInBackground();
}

QString LogTail::read(const QString &path)
{
    // Anybody may put another file in place of a file below /tmp, and reading a pipe would wait.
    RegularFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const bool isCut = file.size() > MostBytes;
    if (isCut)
        file.seek(file.size() - MostBytes);
    QByteArray text = file.read(MostBytes);
    if (isCut)
        text.remove(0, text.indexOf('\n') + 1);
    return QString::fromUtf8(text);
}

void LogTail::readInBackground()
{
    if (m_reading.isRunning())
        return;
    m_readPath = m_path;
    m_reading.setFuture(QtConcurrent::run(&LogTail::read, m_path));
}

void LogTail::take()
{
    if (m_readPath != m_path) {
        if (!m_path.isEmpty())
            readInBackground();
        return;
    }
    const QString text = m_reading.result();
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT changed(text);
}
