// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "engine/repository/repositoryextension.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <memory>

class DecidedPlaces;

/** Files in the pool of a repository that are added to another one, or to another component of the same. */
struct CopiedFiles
{
    struct File
    {
        QByteArray sha256; ///< as the repository lists it, in hexadecimal digits; empty: not known
        QString component; ///< into which it goes
        QString signingKey; ///< text of the key that signed the file; empty when it is unsigned
        QList<PackageInfoPtr> leaving = {}; ///< of the same repository: they are removed once the file is in
    };

    QString origin; ///< what the history says of where the files came from
    QHash<QString, File> files; ///< by path
};

/** How files are added to a repository. */
struct AddOptions
{
    QString component; ///< replaces the component of every package; empty: the package's own
    bool sign = false; ///< sign a copy of each file and add that
    QString signKeyId; ///< the key to sign with
    std::shared_ptr<const DecidedPlaces> decided = {}; ///< null: what goes in is decided on the way
    std::shared_ptr<const CopiedFiles> copied = {}; ///< null: no file comes from a repository
    RepositoryExtension extension = {}; ///< what the repository gets first; further things are asked for
};
