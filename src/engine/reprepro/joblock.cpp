// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/joblock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

JobLock::~JobLock()
{
    release();
}

bool JobLock::take(const QString &repoPath)
{
    if (m_folder >= 0)
        return true;
    const QByteArray folder = QFile::encodeName(repoPath + QLatin1String("/db"));
    // Programs that we start do not inherit the descriptor, so they cannot hold the lock when we are killed.
    m_folder = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_folder < 0 || ::flock(m_folder, LOCK_EX | LOCK_NB) == 0)
        return true;
    const bool isHeld = errno == EWOULDBLOCK;
    release();
    return !isHeld;
}

void JobLock::release()
{
    if (m_folder >= 0)
        ::close(m_folder);
    m_folder = -1;
}
