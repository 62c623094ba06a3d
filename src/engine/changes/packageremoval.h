// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/processutils.h"
#include "engine/repository/packagelist.h"

#include <QCoreApplication>
#include <QSet>

class ExportSession;
struct JobContext;

/** Takes packages out of the repository. */
class PackageRemoval
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    PackageRemoval(JobContext &context, ExportSession *session)
        : m_context(context)
        , m_session(session)
    { }

    /**
     * Takes packages that can share a run out of the database. It reports nothing, and remove() must still be called
     * for each package: it also tries again what a shared run did not do. A stop waits for the end of a run.
     */
    void removeTogether(const QList<PackageInfoPtr> &packages);
    /** Whether removeTogether() has taken it out of the database. */
    bool isOut(const PackageInfo &package) const { return m_gone.contains(PackageKey::of(package)); }
    /** False after critical() when the package is still there. For `makesRoom` see ExportSession::remove(). */
    bool remove(const PackageInfoPtr &package, bool makesRoom = false);

private:
    JobContext &m_context;
    ExportSession *m_session;

    QSet<PackageKey> m_gone; ///< out of the database, by a run for several

    const PackageType *kindToName(const PackageInfo &package) const;
    /** Of a run that takes the names out of architectures that are separated by bars. */
    QString
    arguments(const QStringList &names, const PackageInfo &package, const QString &architectures) const;
    static QString architectures(const QList<PackageInfoPtr> &place);
    /** Each of the lists has a name's packages, and all have the same architectures. */
    void removeInOneRun(const QVector<QList<PackageInfoPtr>> &places);
    static bool hasWorked(const ProcessResult &result);
    bool removeFromDatabase(const PackageInfo &package, bool makesRoom);
    bool isGone(const PackageInfo &package);
};
