// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packagereplacementrules.h"
#include "core/repoenums.h"
#include "engine/changes/addoptions.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/packagebackup.h"
#include "engine/repository/packagelist.h"
#include "files/scratchfolder.h"

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

/** What a job that adds packages keeps from one file to the next. */
struct AddRun
{
    const AddOptions &options;
    const bool singlePackage; ///< the job has one package
    ExportSession session;
    const bool checksDepends = true; ///< when the user wants what is added checked
    PackageReplacementRules rules = {};
    QStringList added = {}; ///< names of the files that are in
    /** Paths of files that went in together with others before their turn, and the places that they have there. */
    QMultiHash<QString, PackageKey> ahead = {};
    QList<PackageInfoPtr> records = {}; ///< of what went in, once for each architecture
    std::optional<QString> signingKey
        = {}; ///< text of the key that signs; looked up when the first file is in
    QString keyTrouble = {}; ///< why the key cannot be used, once that is known
    QList<PackageInfoPtr> wanting = {}; ///< to be checked anew when something went in
    std::vector<PackageBackup> backups
        = {}; ///< of what was replaced, until the database is known to be whole
    QHash<QString, QString> shownNames = {}; ///< what the user knows files by, where it is not their paths

    QString shownName(const QString &path) const { return shownNames.value(path, path); }
};

/** A file on its way into the repository, for one or several architectures. */
struct AddedFile
{
    AddRun &run;
    QString path;
    bool isLast = false;
    QString source
        = {}; ///< what reprepro gets: the file itself or its signed copy; empty until that is known
    std::unique_ptr<ScratchFolder> signedFolder = nullptr;
    QHash<PackageKey, RepoEnums::ErrorCode> results
        = {}; ///< of what is in, which can be more than was asked for

    QString shownName() const { return run.shownName(path); }
    /** What a program says of the file, by that name. */
    QString shownText(QString text) const
    {
        return (source.isEmpty() ? text : text.replace(source, path)).replace(path, shownName());
    }
};
