// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "results/resultsdocument.h"

#include <QHash>
#include <QList>
#include <QSharedPointer>

/** The stored result of one package's dependency check. */
struct StoredDepends
{
    QString version; ///< the version that was checked
    QString architecture;
    QString component; ///< component of the index; empty when the name alone identifies the package
    PackageType type = PackageType::Deb;
    QSharedPointer<const DependsInfo> info;
};

/**
 * The stored results of one repository, by package name. No list is empty. The first record belongs to the name itself.
 */
using StoredPackages = QHash<QString, QVector<StoredDepends>>;

/**
 * The document with the results of dependency checks. When several packages have the same name, for example for several
 * architectures, the first is the member and the others are in its array "others".
 */
namespace DependsJson
{
using ResultsDocument::Outcome;

/** The blanks for each level of the document. */
inline constexpr int indent = 4;

/** A change to the document. */
struct Change
{
    QString repository; ///< the member to delete
    QString newPath; ///< if not empty, the member is renamed to this and replaces a member of this name
    QList<PackageInfoPtr> packages; ///< if not empty, the new member of the repository
};

/**
 * Reads the results of `repository`. Members that are missing or have another type are read as empty or 0. Do not use
 * `stored` unless the outcome is Done.
 */
Outcome read(QIODevice *input, const QString &repository, StoredPackages *stored);

/** The change in the terms of the document; valid as long as `change` is. */
ResultsDocument::Change documentChange(const Change &change);

/** Copies the document `input`, or an empty one when `input` is null, to `output` and applies `change`. */
Outcome rewrite(QIODevice *input, QIODevice *output, const Change &change);

/** The packages of a repository in the form in which their results are stored. */
struct NamedPackages
{
    QHash<QString, PackageInfoPtr> first; ///< the last package of a name; a checked package is preferred
    QHash<QString, QVector<PackageInfoPtr>> others; ///< other packages with this name
};
NamedPackages packagesByName(const QList<PackageInfoPtr> &packages);
} // namespace DependsJson
