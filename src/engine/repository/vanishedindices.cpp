// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/vanishedindices.h"

#include "core/repoinfo.h"
#include "files/removetree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace
{
/** Whether the name stays below its folder. A description can contain any name, and the named folder is deleted. */
bool isChildName(const QString &name)
{
    return !name.isEmpty() && QDir::cleanPath(name) == name && name != QLatin1String(".")
           && !name.startsWith(QLatin1String("..")) && !name.startsWith(QLatin1Char('/'));
}

/** Deletes dists/PARENT/NAME, unless a part of this path is a link. */
void removeIndices(const QString &repoPath, const QString &parent, const QString &name)
{
    if (isChildName(name))
        removeBelow(repoPath, QLatin1String("dists/") + parent + name);
}

/** Changes the links that reprepro makes for suites, so that they lead to the new code name. */
void relinkSuites(const QString &repoPath, const QString &from, const QString &to)
{
    const QDir dists(repoPath + QLatin1String("/dists"));
    const QStringList names
        = dists.entryList(QDir::Dirs | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const std::filesystem::path link(QFile::encodeName(dists.filePath(name)).toStdString());
        std::error_code error;
        if (std::filesystem::read_symlink(link, error) != QFile::encodeName(from).toStdString() || error)
            continue;
        // The link is replaced. If its name is the new code name, it is only deleted, because a folder takes its place.
        std::filesystem::remove(link, error);
        if (name != to)
            std::filesystem::create_symlink(QFile::encodeName(to).toStdString(), link, error);
    }
}

/** Deletes the Contents files of all architectures or of one; `folder` is below dists. */
void removeContents(const QString &repoPath, const QString &folder, const QString &architecture = {})
{
    const QString of = architecture.isEmpty() ? QStringLiteral("*") : architecture;
    QStringList names;
    // The last start is that of links that reprepro makes to the first component.
    for (const char *start : {"Contents-", "Contents-udeb-", "sContents-"})
        for (const char *compression : {"", ".gz", ".bz2", ".xz"})
            names.append(QLatin1String(start) + of + QLatin1String(compression));
    const QStringList files
        = QDir(repoPath + QLatin1String("/dists/") + folder).entryList(names, QDir::Files | QDir::System);
    for (const QString &file : files)
        removeIndices(repoPath, folder, file);
}
} // namespace

bool hasIndices(const QString &repoPath, const QString &codename)
{
    return !codename.isEmpty() && QFileInfo::exists(repoPath + QLatin1String("/dists/") + codename);
}

void removeVanishedIndices(const QString &repoPath, const RepoInfo &before, const RepoInfo &after)
{
    if (before.codename != after.codename) {
        removeIndices(repoPath, QString(), before.codename);
        relinkSuites(repoPath, before.codename, after.codename);
        return;
    }
    if (!isChildName(before.codename))
        return;
    const QStringList components = after.componentList();
    const QStringList architectures = after.architectureList();
    const QString distribution = before.codename + QLatin1Char('/');
    const QStringList oldComponents = before.componentList();
    const QStringList oldArchitectures = before.architectureList();
    // What is still wanted is written anew. Depending on its options, reprepro writes them to this folder too.
    const bool dropsContents = !after.contents || before.contentsChoices != after.contentsChoices;
    if (dropsContents)
        removeContents(repoPath, distribution);
    for (const QString &architecture : oldArchitectures)
        if (!architectures.contains(architecture))
            removeContents(repoPath, distribution, architecture);
    for (const QString &component : oldComponents) {
        if (!components.contains(component)) {
            removeIndices(repoPath, distribution, component);
            continue;
        }
        if (!isChildName(component))
            continue;
        const QString folder = distribution + component + QLatin1Char('/');
        if (dropsContents)
            removeContents(repoPath, folder);
        for (const QString &architecture : oldArchitectures) {
            if (architectures.contains(architecture))
                continue;
            removeIndices(repoPath, folder, QLatin1String("binary-") + architecture);
            removeIndices(repoPath, folder, QLatin1String("debian-installer/binary-") + architecture);
            removeContents(repoPath, folder, architecture);
        }
    }
}
