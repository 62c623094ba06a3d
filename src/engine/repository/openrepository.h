// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QMutex>
#include <QString>

/** Which repository an engine has open, and its description. For any thread. */
class OpenRepository
{
public:
    /** Empty when nothing is open. */
    QString path() const;
    /** path() without links, as of the last set(): for comparisons, not for the user. */
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
