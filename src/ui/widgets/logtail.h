// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

/** Follows the end of a text file that another program writes. Reads the file in the background, once a second. */
class LogTail : public QObject
{
    Q_OBJECT
public:
    static constexpr qint64 MostBytes = 65536;

    explicit LogTail(QObject *parent);

    /** Follows this file from now on; an empty path means no file. The file need not exist. */
    void setFile(const QString &path);
    /** Complete lines from the end of the file, at most MostBytes; empty when it cannot be read. Reads a file. */
    static QString read(const QString &path);

Q_SIGNALS:
    /** The text differs from the last one. */
    void changed(const QString &text);

private:
    void readInBackground();
    void take();

    QString m_path;
    QString m_readPath; ///< file of the present read
    QString m_text;
    QTimer m_timer;
    QFutureWatcher<QString> m_reading;
};
