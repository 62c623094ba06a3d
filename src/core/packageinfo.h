// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/controltext.h"
#include "core/dependsinfo.h"

#include <QList>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

/** Binary packages come in two kinds, which the indices list apart. */
enum class PackageType : quint8 { Deb, Udeb };

/**
 * One package of a repository. What lists and searches need is decoded; the rest is read from the control text when
 * it is asked for, because a repository can hold tens of thousands of packages. A record that has been handed out
 * as a PackageInfoPtr is never written again: a change makes a new record.
 */
struct PackageInfo
{
    QString name;
    QString version;
    QString component; ///< as the Section field names it, else the index's
    QString indexComponent; ///< the component whose index lists the package; what reprepro is asked with
    QString architecture; ///< the architecture whose index lists the package; never "all" in a listing
    QString section;
    PackageType type = PackageType::Deb;

    ControlText control; ///< the whole paragraph
    QString root; ///< the repository's directory; empty for a file outside a repository
    QString repository; ///< origin text of the public source that offers it; empty for a package of our own
    QString poolFile; ///< path below root when the paragraph has no Filename field; else empty
    QString signingKey; ///< text of the key that signed the package file; empty when it is unsigned
    QSharedPointer<const DependsInfo> dependsInfo; ///< null as long as nothing is stored

    QString maintainer() const { return control.field("Maintainer"); }
    QString description() const { return control.description(); }
    QStringList depends() const;
    /** The architecture that the package was built for, which is "all" for many. */
    QString ownArchitecture() const;
    /** Absolute path of the package file; empty when it is not known. */
    QString filePath() const;
    /** The file's name without folders; empty when it is not known. */
    QString fileName() const;

    bool isSigned() const { return !signingKey.isEmpty(); }
    bool hasDependsInfo() const { return !dependsInfo.isNull(); }
    DependStatus dependStatus() const { return dependsInfo ? dependsInfo->status : DependUndefined; }
};

using PackageInfoPtr = QSharedPointer<const PackageInfo>;

Q_DECLARE_METATYPE(PackageInfo)
Q_DECLARE_METATYPE(QList<PackageInfo>)
Q_DECLARE_METATYPE(PackageInfoPtr)
Q_DECLARE_METATYPE(QList<PackageInfoPtr>)

/** What a message calls a package: its file's name, or its own name when it has no file. */
QString displayFileName(const PackageInfo &package);
