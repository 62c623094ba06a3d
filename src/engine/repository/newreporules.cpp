// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/newreporules.h"

#include <QDir>
#include <QRegularExpression>

namespace
{
/** The words of a text, separated by any white space. */
QStringList words(const QString &text)
{
    return text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
} // namespace

QString NewRepoRules::fullPath(const QString &parent, const QString &name)
{
    return QDir::cleanPath(QStringLiteral("%1/%2").arg(parent, name));
}

NewRepoRules::Refusal NewRepoRules::check(const QString &parent, const RepoInfo &info)
{
    for (const QString &value : {parent, info.name, info.codename, info.architectures, info.components}) {
        if (value.trimmed().isEmpty())
            return Refusal::MissingField;
    }
    if (words(info.architectures).contains(QLatin1String("all")))
        return Refusal::ArchitectureAll;
    if (!QDir::isAbsolutePath(parent))
        return Refusal::BadPath;
    // "." and ".." would be valid names, but stand for the parent folder and the folder above it.
    if (info.name == QLatin1String(".") || info.name == QLatin1String("..")
        || info.name.contains(QLatin1Char('/')))
        return Refusal::BadName;
    // The code name is used as a folder, as an argument of every command, and as a word of source lines (see
    // RequestRules).
    static const QRegularExpression codename(QStringLiteral("\\A[A-Za-z0-9][A-Za-z0-9_.+~-]*\\z"));
    return codename.match(info.codename).hasMatch() ? Refusal::None : Refusal::BadName;
}

QString NewRepoRules::importName(const QString &source)
{
    QString base = QDir(source).dirName().toLower();
    static const QRegularExpression ending(QStringLiteral("(_export)?(\\.tgz|\\.tar\\.gzip|\\.tar\\.gz)\\z"));
    static const QRegularExpression refused(QStringLiteral("[^a-z0-9._-]+"));
    static const QRegularExpression edges(QStringLiteral("\\A[.-]+|[.-]+\\z"));
    base.remove(ending).replace(refused, QStringLiteral("-")).remove(edges);
    return QStringLiteral("%1-repo-import").arg(base.isEmpty() ? QStringLiteral("packages") : base);
}

QStringList NewRepoRules::choices(const QString &fileText, const QStringList &defaults)
{
    // Some editors begin a file with a byte order mark.
    QString text = fileText;
    text.remove(QChar(QChar::ByteOrderMark));
    static const QRegularExpression comment(QStringLiteral("#[^\\r\\n]*"));
    QStringList entries = words(text.remove(comment));
    entries.removeDuplicates();
    return entries.isEmpty() ? defaults : entries;
}

QStringList NewRepoRules::defaultArchitectures()
{
    return {QStringLiteral("amd64"),
            QStringLiteral("arm64"),
            QStringLiteral("armhf"),
            QStringLiteral("i386"),
            QStringLiteral("e2k-8c")};
}

QStringList NewRepoRules::defaultComponents()
{
    return {QStringLiteral("main"),
            QStringLiteral("contrib"),
            QStringLiteral("non-free"),
            QStringLiteral("non-free-firmware"),
            QStringLiteral("rpi3")};
}
