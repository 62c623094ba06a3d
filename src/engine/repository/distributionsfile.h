// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QString>

#include <optional>

/** The file conf/distributions of one repository. */
class DistributionsFile
{
public:
    explicit DistributionsFile(const QString &repoPath);

    QString fileName() const { return m_fileName; }
    /** The description; nothing when the file cannot be read. */
    std::optional<RepoInfo> read() const;
    /** The bytes of the file, for restore(); nothing when it cannot be read. */
    std::optional<QByteArray> readBytes() const;
    /** The description in these bytes. */
    RepoInfo parsed(const QByteArray &bytes) const;
    /** Name of the file in which write() keeps these bytes, in the same folder. */
    QString keptAs(const QByteArray &bytes) const;
    /**
     * Replaces the file atomically. If lines of the old text are lost, it is kept in the same folder as
     * distributions.orig, or with a number after this name. False when the file cannot be written; then the old file
     * stays.
     */
    bool write(const RepoInfo &info) const;
    /** Replaces the file with these bytes; false on failure. */
    bool restore(const QByteArray &bytes) const;

private:
    bool keep(const QByteArray &bytes) const;

    QString m_repoPath;
    QString m_fileName;
};
