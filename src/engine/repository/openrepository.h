// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QMutex>
#include <QString>

#include <atomic>

/** The repository that an engine has open, and its description. Thread-safe. */
class OpenRepository
{
public:
    /** Empty when no repository is open. */
    QString path() const;
    /** path() without links, resolved by the last set(). For comparisons, not for display. */
    QString canonicalPath() const;
    RepoInfo info() const;

    void set(const QString &path, const RepoInfo &info);
    void setInfo(const RepoInfo &info);

    /** Whether the user may change the repository, as of its last reading. */
    bool isWritable() const { return m_isWritable; }
    void setWritable(bool isWritable) { m_isWritable = isWritable; }

private:
    mutable QMutex m_mutex;
    QString m_path;
    QString m_canonicalPath;
    RepoInfo m_info;
    std::atomic<bool> m_isWritable{true};
};
