// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QFile>

/**
 * A file that somebody else may have put there. Only a regular file can be opened: a pipe could keep its reader waiting
 * for ever, and a device can do anything. Opening never waits.
 */
class RegularFile : public QFile
{
    Q_DECLARE_TR_FUNCTIONS(RegularFile)
public:
    using QFile::open;
    using QFile::QFile;

    /** Opens for reading, or with Append for writing at the end. On failure errorString() tells the reason. */
    bool open(OpenMode mode) override;

    /** The error text when the path exists and is no regular file; else empty. */
    static QString refusal(const QString &path);
};
