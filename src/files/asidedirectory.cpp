// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/asidedirectory.h"

#include "files/removetree.h"
#include "files/renamepath.h"

#include <QFileInfo>

#include <cerrno>

namespace
{
QString freeSibling(const QString &path)
{
    QString candidate;
    int number = 0;
    do {
        candidate = QStringLiteral("%1.replaced-%2").arg(path).arg(++number);
    } while (QFileInfo::exists(candidate) || QFileInfo(candidate).isSymLink());
    return candidate;
}
} // namespace

AsideDirectory::AsideDirectory(const QString &path)
    : m_path(path)
{
    const QFileInfo present(path);
    if (!present.exists() && !present.isSymLink())
        return;
    if (present.exists() && !present.isDir()) {
        m_error = qt_error_string(ENOTDIR);
        return;
    }
    const QString place = freeSibling(path);
    m_error = rename(path, place);
    if (m_error.isEmpty())
        m_place = place;
}

void AsideDirectory::putBack()
{
    if (!m_place.isEmpty() && rename(m_place, m_path).isEmpty())
        m_place.clear();
}

bool AsideDirectory::remove()
{
    if (m_place.isEmpty())
        return true;
    return removeTree(m_place);
}

QString AsideDirectory::rename(const QString &from, const QString &to)
{
    if (renamePath(from, to))
        return {};
    return qt_error_string(errno);
}
