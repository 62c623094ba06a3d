// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QHash>
#include <QList>
#include <QSharedPointer>
#include <QString>

class QIODevice;

/** What is stored of one package's dependency check. */
struct StoredDepends
{
    QString version; ///< the one that was checked
    QString architecture;
    QString component; ///< the index's; empty where the name alone tells the package apart
    PackageType type = PackageType::Deb;
    QSharedPointer<const DependsInfo> info;
};

/** The stored results of one repository, by package name; never an empty list. The first counts for the name. */
using StoredPackages = QHash<QString, QVector<StoredDepends>>;

/**
 * The document that keeps the results of dependency checks: an object with one member a repository, by the
 * repository's path. It can be hundreds of megabytes, so it is walked through and never held as a whole. A package
 * that is there more than once, for several architectures, has one member, and the others stand in that as "others".
 */
namespace DependsJson
{
enum class Outcome {
    Done,
    Broken, ///< the input is no such document
    Failed ///< the input could not be read or the output not be written
};

/** What a rewriting does to the document. */
struct Change
{
    QString repository; ///< its member goes
    QString newPath; ///< if not empty the member gets this name instead, in the place of one that has it
    QList<PackageInfoPtr> packages; ///< if not empty these are the repository's new member
};

/**
 * Reads the results of `repository`. Members that are missing or of another type read as empty or 0. What was read
 * before an outcome other than Done is not to be used.
 */
Outcome read(QIODevice *input, const QString &repository, StoredPackages *stored);

/** Whether `input` has a member for one of `repositories`. What stands behind the member is not looked at. */
bool hasMember(QIODevice *input, const QStringList &repositories);

/** Writes the document `input`, an empty one when that is null, to `output` with `change` made to it. */
Outcome rewrite(QIODevice *input, QIODevice *output, const Change &change);

/** The packages of a repository as their results are stored. */
struct NamedPackages
{
    QHash<QString, PackageInfoPtr> first; ///< the last one of a name, of those that were checked if any
    QHash<QString, QVector<PackageInfoPtr>> others; ///< what else has the name, as for another architecture
};
NamedPackages packagesByName(const QList<PackageInfoPtr> &packages);
} // namespace DependsJson
