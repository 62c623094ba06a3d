// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/**
 * A new file that replaces another file when it is complete. Until then no other user can read it. Where the file
 * system allows it, the file has no name, so a killed program leaves nothing behind.
 */
class ReplacingFile
{
public:
    explicit ReplacingFile(const QString &target);
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile &) = delete;
    ReplacingFile &operator=(const ReplacingFile &) = delete;

    /** Opens the file for writing, without a buffer. */
    bool open();
    QFileDevice *device() { return &m_file; }
    /** Puts the file in its place; false when this fails or an earlier write failed. */
    bool commit();
    QString errorString() const { return m_error; }

private:
    QString m_target;
    QFile m_file;
    QByteArray m_name; ///< path of the file until it is complete; empty when it needs no name
    QString m_error;

    /** A new file's descriptor; negative on failure, see errno. */
    int makeFile();
    /** Gives the file the mode of the file that it replaces, or the usual mode of a new file. */
    bool setMode() const;
    bool putIntoPlace();
    bool moveIntoPlace(const QByteArray &name);
};
