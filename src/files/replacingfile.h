// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/**
 * A new file that takes the place of another one when it is whole. Until then nobody else can read it, and where the
 * file system can do it, it has no name, so that nothing of it lies about when the program is killed.
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
    /** Puts the file into its place; false when that fails, or when a write has failed. */
    bool commit();
    QString errorString() const { return m_error; }

private:
    QString m_target;
    QFile m_file;
    QByteArray m_name; ///< path of the file until it is whole; empty where it needs none
    QString m_error;

    /** The number of a new file; negative when there can be none, see errno. */
    int makeFile();
    /** Gives the file the mode of the one that it replaces, or a new file's usual one. */
    bool setMode() const;
    bool putIntoPlace();
    bool moveIntoPlace(const QByteArray &name);
};
