// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "depends/dependsjson.h"
#include "results/resultsfile.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QWeakPointer>

#include <vector>

/**
 * Stores the results of dependency checks between runs of the program, in one file for all repositories of a user. An
 * object handles one repository at a time, the last one loaded. It lives in a thread of its own in the engine, because
 * all its slots may take seconds. Several objects in any threads and processes may use the same file. If the file
 * cannot be written, or another process works on it for more than ten seconds, only the results of this save are lost.
 */
class DependsData : public QObject
{
    Q_OBJECT
public:
    /** `repoPath` makes a repository the current one without loading its results. */
    explicit DependsData(const QString &fileName, QString repoPath = QString(), QObject *parent = nullptr);

    /** The file of the user, below the configuration folder and named after the application. */
    static QString userFileName();

public Q_SLOTS:
    /** Makes a repository the current one and reads its results; an empty path is ignored. */
    void loadData(const QString &repoPath);
    /** The current repository has moved: its results belong to the new path from now on, also in the file. */
    void changePath(const QString &newPath);
    /** Deletes the results of the current repository. */
    void removeRepoData();
    /**
     * Emits packagesMerged() with the list `origin` and the results that loadData() has read, and forgets these.
     * Results are found by package name; of several records with the same name, the most similar one is used. The
     * version is ignored. Results for another architecture are changed to that of the package. Packages with results
     * become new records, because published records never change. Emits nothing when there are no results to merge.
     */
    void mergeStoredPackages(const QList<PackageInfoPtr> &origin);
    /** Stores the results of these packages, which must be the whole repository. An empty list is ignored. */
    void savePackages(const QList<PackageInfoPtr> &packages);

Q_SIGNALS:
    /** The result of mergeStoredPackages(). */
    void packagesMerged(const QList<PackageInfoPtr> &packages);
    /** The file could not be parsed. It was renamed to `keptAs`, with the results of all repositories. */
    void fileBroken(const QString &keptAs);

private:
    const ResultsFile m_file;
    QString m_repoPath;
    StoredPackages
        m_stored; ///< from loading to merging; from then on the records of the packages hold the results
    /** The records whose results the file holds; empty when this is not known. Weak, to free results that changed. */
    std::vector<QWeakPointer<const PackageInfo>> m_saved;

    bool rewrite(const DependsJson::Change &change);
};
