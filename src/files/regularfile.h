// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QFile>

/**
 * A file that others may have put there. Only a regular file can be opened: a pipe would keep its reader waiting for
 * ever, and a device does what it likes. Opening never waits.
 */
class RegularFile : public QFile
{
    Q_DECLARE_TR_FUNCTIONS(RegularFile)
public:
    using QFile::open;
    using QFile::QFile;

    /** For reading, or with Append for writing at the end. When it fails, errorString() says why. */
    bool open(OpenMode mode) override;

    /** What is wrong with the path when something lies there that is no regular file; else empty. */
    static QString refusal(const QString &path);
};
