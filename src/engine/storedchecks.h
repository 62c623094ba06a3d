// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/installabilitystore.h"

#include <QObject>

/**
 * The stored results of the complete checks of one repository at a time, the last one loaded. It lives in a thread of
 * its own in the engine, because all its functions may take seconds.
 */
class StoredChecks : public QObject
{
    Q_OBJECT
public:
    explicit StoredChecks(const QString &fileName)
        : m_store(fileName)
    { }

    /** Makes a repository the current one and reads its results; an empty path is ignored. */
    void load(const QString &repoPath);
    /** The packages with the results that load() has read. These are forgotten then. */
    QList<PackageInfoPtr> merged(const QList<PackageInfoPtr> &packages);
    /** Of the check whose results load() has read; not valid when there are none. */
    CompleteCheckRecord record() const { return m_loaded.record; }
    /** The current repository has moved: its results belong to the new path from now on. */
    void changePath(const QString &newPath);
    /** Deletes the results of the current repository. */
    void remove();
    /** Stores the results of these packages, which must be the whole repository. */
    void save(const QList<PackageInfoPtr> &packages, const CompleteCheckRecord &record);

Q_SIGNALS:
    /** The file could not be parsed. It was renamed to `keptAs`, with the results of all repositories. */
    void fileBroken(const QString &keptAs);

private:
    const InstallabilityStore m_store;
    QString m_repoPath;
    StoredCompleteCheck m_loaded; ///< its results only until they are merged; then the records hold them

    void tell(const QString &keptAs);
};
