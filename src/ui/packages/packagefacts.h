// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QCoreApplication>
#include <QString>

/** What the control paragraph of a package says beyond the fields of its record. Empty or negative: not known. */
struct PackageFacts
{
    Q_DECLARE_TR_FUNCTIONS(PackageFacts)
public:
    qint64 size = -1; ///< of the package file, in bytes
    qint64 installedSize = -1; ///< in bytes
    QString source; ///< the source package, with its version in brackets when that differs
    QString homepage;
    QString poolFile; ///< path below the repository's directory
    QString sha256; ///< of the package file, in hexadecimal digits

    static PackageFacts of(const PackageInfo &package);
    /** The size of the package file in bytes; negative when it is not known. */
    static qint64 sizeOf(const PackageInfo &package);

    /** A size for the user, "1.2 MiB"; empty for a negative one. `isExact` adds the bytes. */
    static QString sizeText(qint64 bytes, bool isExact = false);
    /** A link to the address as rich text. An address that is not of the web is shown as it is. */
    static QString linkTo(const QString &address);
    /** The names, each once and on its own line. */
    static QString names(const QList<PackageInfoPtr> &packages);
    /**
     * The command line that installs these versions: apt install NAME=VERSION. What a shell would interpret is quoted.
     * A name gets its architecture when the packages hold it for several. Empty when there is no name for apt.
     */
    static QString aptCommand(const QList<PackageInfoPtr> &packages);
};
