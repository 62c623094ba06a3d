// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/processutils.h"
#include "engine/changes/packagesource.h"
#include "engine/reprepro/reprolisting.h"

#include <QSet>
#include <QVector>

#include <optional>

class ExportSession;
struct JobContext;
class PackageInclusion;

/**
 * Puts several files into the repository with one run of reprepro, whose start takes longer than the inclusion itself:
 * files of the usual form from a source of our own (PackageSource), and the others by inclusion. It takes only plain
 * files that collide with nothing. When a file fails, PackageInclusion tries it alone later and tells the reason.
 */
class BatchInclusion
{
public:
    using Candidate = PackageSource::Package;

    BatchInclusion(JobContext &context, ExportSession &session, PackageInclusion &inclusion)
        : m_context(context)
        , m_session(session)
        , m_inclusion(inclusion)
    { }

    /** Whether candidates should have their control file and checksums, which make the runs for them faster. */
    bool readsForIndex();
    /**
     * Tells the inclusion which candidates are in. Not for files that are to be signed, nor for the first file of a job
     * on a signed repository, whose run writes the indices and shows whether they can be signed. With `replacesOlder`,
     * which needs the user's choice for the whole job, files replace older versions too.
     */
    void include(const QVector<Candidate> &candidates, bool replacesOlder);

private:
    JobContext &m_context;
    ExportSession &m_session;
    PackageInclusion &m_inclusion;
    std::optional<bool> m_usesSource; ///< unknown until a job asks
    int m_failures = 0; ///< of runs with a source

    bool isPlain(const PackageInfo &record, bool replacesOlder) const;
    /** Whether reprepro puts the file into the place of the present one by itself: it is newer and has another name. */
    static bool isPlainSuccessor(const PackageInfo &record, const PackageInfo &present);
    /** Takes those of the files that suit by `reprepro update`. What it leaves is included. */
    void includeFromSource(const QVector<Candidate> &candidates);
    void includeGroup(QVector<Candidate> group);
    void recordFiles(const QVector<Candidate> &group);
    ProcessResult runWith(const QVector<Candidate> &group);
    /** Those packages of the group that the database has. */
    QSet<ReproListing::Package> packagesInDatabase(const QVector<Candidate> &group);
    /** The same as note() for files whose run has failed after it had changed the database. */
    void noteAll(const QVector<Candidate> &candidates);
    /** Tells the inclusion of the records that are in; true when these are all of the candidate. */
    bool note(const Candidate &candidate, const QSet<ReproListing::Package> &present);
};
