// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/qtversions.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * What reprepro prints when it lists what its database holds. The formats are those that the commands in ReproCommand
 * ask for. Lines of another form, as a damaged database can yield, are passed over.
 */
namespace ReproListing
{
/** A package in one place of the repository. */
struct Package
{
    QString component;
    QString architecture; ///< of the index
    QString name;
    QString file; ///< path below the repository

    PackageType type() const;
    friend bool operator==(const Package &a, const Package &b)
    {
        return a.component == b.component && a.architecture == b.architecture && a.name == b.name
               && a.file == b.file;
    }
};
QtVersions::HashValue qHash(const Package &package, QtVersions::HashValue seed = 0);

/** Of listAllFiles() and listPackages(), in the order of the listing. */
QVector<Package> packages(const QString &output);
/** Of listFiles() and dumpUnreferenced(): paths below the repository. */
QStringList files(const QString &output);
/** Of listChecksums(): the files that the database knows, with their SHA256 in hexadecimal, empty for some. */
QHash<QString, QByteArray> checksums(const QString &output);
/** The line of dumpReferences() that says that the database needs the file of the package. */
QString reference(const QString &codename, const Package &package);
} // namespace ReproListing
