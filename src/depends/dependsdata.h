// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "depends/dependsjson.h"

#include <QList>
#include <QObject>
#include <QString>

/**
 * Keeps the results of dependency checks across runs of the program, in one file for all repositories of a user. An
 * object knows one repository at a time, the one last loaded. It lives in a thread of its engine's own, since all its
 * slots may take seconds; several objects, in whatever threads, may use the same file. A file that cannot be written
 * costs the results of that save and nothing else.
 */
class DependsData : public QObject
{
    Q_OBJECT
public:
    /** `repoPath` makes a repository the current one without loading its results. */
    explicit DependsData(QString fileName, QString repoPath = QString(), QObject *parent = nullptr);

    /** The user's file: below the configuration folder, named after the application. */
    static QString userFileName();

public Q_SLOTS:
    /** Makes a repository the current one and reads its results; an empty path is ignored. */
    void loadData(const QString &repoPath);
    /** The current repository has moved: its results are those of the new path from now on, in the file too. */
    void changePath(const QString &newPath);
    /** Deletes the current repository's results. */
    void removeRepoData();
    /**
     * Tells with packagesMerged() the list `origin` with the stored results in it, found by the packages' names, and
     * of several by what else they have in common; the version does not matter. Results of another architecture are
     * given as those of the package's own. Packages with results become new records, because records that were
     * published do not change. Says nothing when there is nothing to merge.
     */
    void mergeStoredPackages(const QList<PackageInfoPtr> &origin);
    /** Makes the results of these packages, the whole repository's, the stored ones; an empty list is ignored. */
    void savePackages(const QList<PackageInfoPtr> &packages);

Q_SIGNALS:
    void packagesMerged(const QList<PackageInfoPtr> &packages);
    /** The file could not be understood and lies aside as `keptAs`, with the results of all repositories. */
    void fileBroken(const QString &keptAs);

private:
    const QString m_fileName;
    QString m_repoPath;
    StoredPackages m_stored;
    QList<PackageInfoPtr> m_saved; ///< the records that the file holds the results of, if it is known

    QString brokenName() const { return m_fileName + QLatin1String(".broken"); }
    bool hasMember(const QStringList &repositories) const;
    bool rewrite(const DependsJson::Change &change);
    DependsJson::Outcome rewriteOnce(const DependsJson::Change &change);
    bool moveAside();
};
