// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/openrepository.h"

#include "files/pathguard.h"

#include <QMutexLocker>

QString OpenRepository::path() const
{
    const QMutexLocker lock(&m_mutex);
    return m_path;
}

QString OpenRepository::canonicalPath() const
{
    const QMutexLocker lock(&m_mutex);
    return m_canonicalPath;
}

RepoInfo OpenRepository::info() const
{
    const QMutexLocker lock(&m_mutex);
    return m_info;
}

void OpenRepository::set(const QString &path, const RepoInfo &info)
{
    // Resolving links accesses the disk, so it happens before the lock.
    const QString canonicalPath = path.isEmpty() ? QString() : PathGuard::resolved(path);
    const QMutexLocker lock(&m_mutex);
    m_path = path;
    m_canonicalPath = canonicalPath;
    m_info = info;
}

void OpenRepository::setInfo(const RepoInfo &info)
{
    const QMutexLocker lock(&m_mutex);
    m_info = info;
}
