// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/storedcompletecheck.h"
#include "results/resultsfile.h"

/**
 * Stores the results of complete checks between runs of the program, in one file for all repositories of a user. All
 * functions may take seconds. Several objects in any threads and processes may use the same file.
 */
class InstallabilityStore
{
public:
    explicit InstallabilityStore(const QString &fileName = userFileName());

    /** The file of the user, beside that of the dependency results. */
    static QString userFileName();

    /** The results of the repository; empty when there are none. `keptAs`: the new name of a broken file. */
    StoredCompleteCheck load(const QString &repository, QString *keptAs = nullptr) const;
    /** False when the results could not be written; those of other repositories are still there. */
    bool save(const QString &repository, const StoredCompleteCheck &check, QString *keptAs = nullptr) const;
    /** The repository has moved: its results belong to the new path from now on. */
    bool move(const QString &repository, const QString &newPath) const;
    bool remove(const QString &repository) const;

private:
    ResultsFile m_file;

    bool rewrite(const ResultsDocument::Change &change, QString *keptAs) const;
};
