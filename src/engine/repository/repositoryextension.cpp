// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/repositoryextension.h"

#include <QRegularExpression>

namespace
{
void appendMissing(QStringList *list, const QStringList &others)
{
    for (const QString &other : others)
        if (!list->contains(other))
            list->append(other);
}

/** `list` is the value of a line, which can end with a comment. */
QString extended(const QString &list, const QStringList &present, const QStringList &further)
{
    const auto comment = list.indexOf(QLatin1Char('#'));
    QStringList words{list.left(comment).trimmed()};
    for (const QString &word : further)
        if (!present.contains(word))
            words.append(word);
    if (words.size() == 1)
        return list;
    if (comment >= 0)
        words.append(list.mid(comment));
    return words.join(QLatin1Char(' ')).trimmed();
}
} // namespace

void RepositoryExtension::unite(const RepositoryExtension &other)
{
    appendMissing(&architectures, other.architectures);
    appendMissing(&components, other.components);
}

RepoInfo RepositoryExtension::appliedTo(RepoInfo info) const
{
    info.architectures = extended(info.architectures, info.binaryArchitectures(), architectures);
    info.components = extended(info.components, info.componentList(), components);
    return info;
}

bool RepositoryExtension::canBeArchitecture(const QString &name)
{
    static const QRegularExpression plain(QStringLiteral("\\A[a-z0-9][a-z0-9-]*\\z"));
    static const QStringList reserved{QStringLiteral("all"), QStringLiteral("any"), QStringLiteral("source")};
    return plain.match(name).hasMatch() && !reserved.contains(name);
}

bool RepositoryExtension::canBeComponent(const QString &name)
{
    // A component is a folder below dists/, and a word of source lines.
    static const QRegularExpression plain(QStringLiteral("\\A[A-Za-z0-9][A-Za-z0-9_.+-]*\\z"));
    return plain.match(name).hasMatch();
}
