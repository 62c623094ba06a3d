// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/repositoryreading.h"

#include "cli/invocation.h"
#include "cli/terminal/console.h"
#include "engine/changes/exportsession.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/repositoryaccess.h"
#include "engine/reprepro/configfolder.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>

#include <fnmatch.h>

std::optional<RepositoryReading> RepositoryReading::of(const QString &path, Console &console)
{
    const auto fail = [&](const QString &reason) {
        const QString text
            = QCoreApplication::translate("cli", "The repository %1 cannot be read.").arg(path);
        console.error(QStringLiteral("repository"), text, reason, path);
        return std::nullopt;
    };
    const QString reason = RepositoryAccess::refusal(path);
    if (!reason.isEmpty())
        return fail(reason);
    const auto info = DistributionsFile(path).read();
    if (!info)
        return fail(QCoreApplication::translate("cli", "It has no file conf/distributions."));
    if (info->codename.isEmpty())
        return fail(QCoreApplication::translate("cli", "Its file conf/distributions names no distribution."));
    auto packages = readListing(path, *info);
    if (!packages)
        return fail(QCoreApplication::translate("cli", "Its indices are missing."));
    tellOfOldIndices(path, console);
    return RepositoryReading{path, *info, std::move(*packages)};
}

void RepositoryReading::tellOfOldIndices(const QString &path, Console &console)
{
    if (ExportSession::isExportOwed(path) || ConfigFolder(path + QLatin1String("/conf")).exportsNever())
        console.error(QStringLiteral("outdated"),
                      QCoreApplication::translate("cli",
                                                  "The indices of the repository may be older than its "
                                                  "database, so they may not name all that it holds."),
                      {},
                      path);
}

PackageSelection::PackageSelection(const QStringList &words, Words kind, const Invocation &invocation)
    : m_words(words)
    , m_kind(kind)
    , m_architecture(invocation.value("arch"))
    , m_component(invocation.value("component"))
{ }

QList<PackageInfoPtr> PackageSelection::of(const QList<PackageInfoPtr> &packages) const
{
    QList<PackageInfoPtr> selected;
    std::copy_if(
        packages.cbegin(), packages.cend(), std::back_inserter(selected), [this](const auto &package) {
            return isInPlace(*package)
                   && (m_words.isEmpty()
                       || std::any_of(m_words.cbegin(), m_words.cend(), [&](const QString &word) {
                              return matches(word, *package);
                          }));
        });
    return selected;
}

QStringList PackageSelection::unmatched(const QList<PackageInfoPtr> &packages) const
{
    QStringList words;
    std::copy_if(m_words.cbegin(), m_words.cend(), std::back_inserter(words), [&](const QString &word) {
        return std::none_of(packages.cbegin(), packages.cend(), [&](const auto &package) {
            return isInPlace(*package) && matches(word, *package);
        });
    });
    return words;
}

QStringList PackageSelection::tellUnmatched(const QList<PackageInfoPtr> &packages, Console &console) const
{
    const QStringList words = unmatched(packages);
    for (const QString &word : words)
        console.error(QStringLiteral("unknown"),
                      QCoreApplication::translate("cli", "The repository has no package %1.").arg(word));
    return words;
}

bool PackageSelection::isInPlace(const PackageInfo &package) const
{
    return (m_architecture.isEmpty() || package.architecture == m_architecture)
           && (m_component.isEmpty() || package.indexComponent == m_component);
}

bool PackageSelection::matches(const QString &word, const PackageInfo &package) const
{
    // Neither a name nor a pattern for names has this character.
    const auto equals = word.indexOf(QLatin1Char('='));
    if (equals >= 0 && word.mid(equals + 1) != package.version)
        return false;
    const QString name = word.left(equals);
    return name == package.name
           || (m_kind == Patterns
               && ::fnmatch(
                      QFile::encodeName(name).constData(), QFile::encodeName(package.name).constData(), 0)
                      == 0);
}
