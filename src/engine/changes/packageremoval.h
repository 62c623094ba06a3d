// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/processutils.h"
#include "engine/repository/packagelist.h"
#include "engine/reprepro/reprolisting.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QVector>

#include <optional>

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
     * What the database has of the names that are removed. With it, removeTogether() lets names of different
     * architectures share a run: such a run must not take a package out that was not asked for.
     */
    void setPresent(const QVector<ReproListing::Package> &present);
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
    std::optional<QHash<QString, QVector<PackageKey>>> m_present; ///< by names; see setPresent()

    /** Packages of one name and component, which share their runs. */
    using Place = QList<PackageInfoPtr>;
    struct Run
    {
        QStringList architectures;
        QVector<Place> places;
    };

    const PackageType *kindToName(const PackageInfo &package) const;
    /** Of a run that takes the names out of architectures that are separated by bars. */
    QString
    arguments(const QStringList &names, const PackageInfo &package, const QStringList &architectures) const;
    static QStringList architectures(const QVector<Place> &places);
    /** Whether a removal of the name from these architectures takes out nothing but the packages of the place. */
    bool isAllThere(const Place &place, const QStringList &architectures) const;
    void removeInOneRun(const Run &run);
    static bool hasWorked(const ProcessResult &result);
    bool removeFromDatabase(const PackageInfo &package, bool makesRoom);
    bool isGone(const PackageInfo &package);
};
