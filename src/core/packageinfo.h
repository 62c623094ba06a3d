// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/controltext.h"
#include "core/dependsinfo.h"
#include "core/installabilityinfo.h"

#include <QList>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

/** Binary packages have two types. An index lists packages of one type only. */
enum class PackageType : quint8 { Deb, Udeb };

/**
 * One package of a repository. Only the fields that lists and searches need are decoded. All other fields are read from
 * the control text on demand, because a repository can hold tens of thousands of packages. A record that was handed out
 * as a PackageInfoPtr never changes: a change makes a new record.
 */
struct PackageInfo
{
    QString name;
    QString version;
    QString component; ///< from the Section field, or the component of the index
    QString indexComponent; ///< the component whose index lists the package; reprepro is called with it
    QString architecture; ///< the architecture whose index lists the package; never "all" in a listing
    QString section;
    PackageType type = PackageType::Deb;

    ControlText control; ///< the whole paragraph
    QString root; ///< the repository's directory; empty for a file outside a repository
    QString repository; ///< origin text of the public source of the package; empty for our own packages
    QString poolFile; ///< path below root, only when the paragraph has no Filename field
    QString signingKey; ///< text of the key that signed the package file; empty when it is unsigned
    QSharedPointer<const DependsInfo> dependsInfo; ///< null as long as no result is stored
    QSharedPointer<const InstallabilityInfo> installability; ///< null as long as there is no complete check

    QString maintainer() const { return control.field("Maintainer"); }
    QString description() const { return control.description(); }
    /** The entries of the Depends field. */
    QStringList depends() const;
    /** The architecture that the package was built for. For many packages it is "all". */
    QString ownArchitecture() const;
    /** Absolute path of the package file; empty when the path is not known. */
    QString filePath() const;
    /** The name of the package file without folders; empty when the name is not known. */
    QString fileName() const;

    bool isSigned() const { return !signingKey.isEmpty(); }
    bool hasDependsInfo() const { return !dependsInfo.isNull(); }
    DependStatus dependStatus() const { return dependsInfo ? dependsInfo->status : DependUndefined; }
    Installability installabilityState() const
    {
        return installability ? installability->state : InstallabilityUnknown;
    }
};

using PackageInfoPtr = QSharedPointer<const PackageInfo>;

Q_DECLARE_METATYPE(PackageInfo)
Q_DECLARE_METATYPE(QList<PackageInfo>)
Q_DECLARE_METATYPE(PackageInfoPtr)
Q_DECLARE_METATYPE(QList<PackageInfoPtr>)

/** The name of a package in a message: the name of its file, or the package name when there is no file. */
QString displayFileName(const PackageInfo &package);
