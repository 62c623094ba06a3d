// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QMutex>
#include <QString>

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

private:
    mutable QMutex m_mutex;
    QString m_path;
    QString m_canonicalPath;
    RepoInfo m_info;
};
