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
    /** The file as it is, for restore(); nothing when it cannot be read. */
    std::optional<QByteArray> readBytes() const;
    /** The description that the file has when it holds this. */
    RepoInfo parsed(const QByteArray &bytes) const;
    /** Name of the file that write() keeps this in, in the same folder. */
    QString keptAs(const QByteArray &bytes) const;
    /**
     * Replaces the file atomically. A text that held more than our own fields is kept beside it, as
     * distributions.orig or with a number behind. False when the file cannot be written; the old one then stays.
     */
    bool write(const RepoInfo &info) const;
    bool restore(const QByteArray &bytes) const;

private:
    bool keep(const QByteArray &bytes) const;

    QString m_repoPath;
    QString m_fileName;
};
