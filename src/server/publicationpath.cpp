// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publicationpath.h"

#include <QDir>
#include <QFileInfo>
#include <QVector>

#include <algorithm>
#include <climits>

namespace
{
bool isAllowed(uint character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character)
           || (character < 0x80 && QByteArrayLiteral("/._+~@:- ").contains(static_cast<char>(character)));
}
} // namespace

namespace PublicationPath
{
bool isWellFormed(const QString &path)
{
    if (path.size() < 2 || path.size() >= PATH_MAX || !path.startsWith(QLatin1Char('/'))
        || QDir::cleanPath(path) != path)
        return false;
    // Most configuration formats lose a blank at the end of a value. A blank at the start of a name causes similar
    // trouble.
    if (path.endsWith(QLatin1Char(' ')) || path.contains(QLatin1String("/ "))
        || path.contains(QLatin1String(" /")))
        return false;
    const QVector<uint> characters = path.toUcs4();
    return std::all_of(characters.cbegin(), characters.cend(), isAllowed);
}

bool isTemporary(const QString &path)
{
    return path.startsWith(QLatin1String("/tmp/")) || path.startsWith(QLatin1String("/var/tmp/"));
}

bool isPublishable(const QString &path)
{
    return isWellFormed(path) && QFileInfo(path).canonicalFilePath() == path && QFileInfo(path).isDir()
           && QFileInfo(path + QLatin1String("/conf/distributions")).isFile();
}
} // namespace PublicationPath
