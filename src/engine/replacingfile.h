// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QSaveFile>
#include <QString>

/**
 * A new file that takes the place of another one when it is whole. Where the file system can do it, the file has no
 * name until then, so that nothing of it lies about when the program is killed.
 */
class ReplacingFile
{
public:
    explicit ReplacingFile(const QString &target);
    ReplacingFile(const ReplacingFile &) = delete;
    ReplacingFile &operator=(const ReplacingFile &) = delete;

    /** Opens the file for writing, without a buffer. */
    bool open();
    QFileDevice *device();
    /** Puts the file into its place; false when that fails, or when a write has failed. */
    bool commit();
    QString errorString() const { return m_error; }

private:
    QString m_target;
    QFile m_unnamed;
    QSaveFile m_named; ///< when there can be no file without a name
    QString m_error;

    bool putIntoPlace();
};
