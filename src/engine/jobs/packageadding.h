// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/countof.h"
#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"
#include "core/repoenums.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/addoptions.h"
#include "engine/changes/batchinclusion.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/inclusionrules.h"
#include "engine/changes/packageinclusion.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>
#include <QVector>

struct JobContext;
class JobFrame;
class RunSize;

/** The common part of all jobs that add packages. */
class PackageAdding : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** `singlePackage` says that the job has one package; `checksDepends` that added packages are to be checked. */
    PackageAdding(JobContext &context,
                  const AddOptions &options,
                  bool singlePackage,
                  bool checksDepends = true);

    /** Names that the user knows, for files whose paths he does not know. */
    void setShownNames(const QHash<QString, QString> &names) { m_shownNames = names; }
    /** Has the files replace whatever is there, without a question. */
    void replaceAll() { m_rules.value = PackageReplacementRules::ReplaceAll; }
    /** Packages whose dependencies are checked again at the end, when a package went in. */
    void setWanting(const QList<PackageInfoPtr> &packages) { m_wanting = packages; }
    /** Where files came from that the user did not give: an archive, or a source of apt. */
    void setOrigins(const QHash<QString, QString> &origins) { m_origins = origins; }

    /** Has the packages removed at the end that leave their places for the file at this path, where it is in. */
    void letLeave(const QString &path);

    /**
     * Adds the files one by one and finishes; CANCEL after a stop. Files for an architecture or a component that the
     * repository lacks come last, after one question whether it is to get these.
     */
    ErrorCode addFiles(const QStringList &files, JobFrame *frame);
    /** Offers to give the repository what it lacks for these packages. Call it before the first addition. */
    void offerExtension(const QList<PackageInfo> &packages);
    /** Adds a file for the architectures that it serves. */
    void addReadFile(const PackageFile &read, bool isLast);
    /** The file at this path on its way into the repository, for the jobs that include files themselves. */
    AddedFile fileAt(const QString &path, bool isLast = false) const;
    /** For a job of many runs: see ExportSession. */
    void startSilently() { m_session.startSilently(); }
    /** Whether several files can go in with one run: none is signed, and the indices wait for the end. */
    bool canShareRuns() const { return !m_inclusion.isSigning() && m_session.isSilent(); }
    /** Whether replaceTogether() is faster with files that were read for an index. */
    bool readsForIndex() { return m_batch.readsForIndex(); }
    /** Puts those of the files that can share a run into the places of older packages. A replace() for each place of
     *  each file must follow, in the order of the files. */
    void replaceTogether(const QVector<BatchInclusion::Candidate> &files);
    /** Whether replaceTogether() has put the file in, and no replace() has followed. */
    bool isAhead(const QString &path) const { return m_inclusion.isAhead(path); }
    /** The same for one place of the file. */
    bool isAhead(const QString &path, const PackageInfo &record) const
    {
        return m_inclusion.isAhead(path, PackageKey::of(record));
    }
    /** Puts a file in the place of the package that is there; see PackageInclusion::include(). */
    ErrorCode replace(AddedFile *file, const PackageInfo &record);
    /** Writes the indices, checks the added packages and has the results stored. False, after an error, when all
     *  changes have been undone. */
    bool finish();

    /** Whether no further file may be added: after a stop, and when the repository must not be changed. */
    bool mustEnd() const;
    /** Whether nothing more can be done, because the database is damaged or the end of the job undoes all of it. */
    bool isDamaged() const { return m_session.isDamaged() || m_isGivenUp; }
    int addedCount() const { return countOf(m_added); }
    /** The files that are in. */
    QString addedNames() const { return m_added.join(QLatin1String(", ")); }

private:
    /** A file in the repository that an added one collides with. */
    struct PresentFile
    {
        PackageInfoPtr package; ///< for the first of the architectures
        QStringList architectures; ///< that it serves
        bool isAll = false; ///< no other file is in the way
    };

    JobContext &m_context;
    const AddOptions m_options;
    const bool m_singlePackage;
    const bool m_checksDepends;
    ExportSession m_session;
    PackageInclusion m_inclusion;
    BatchInclusion m_batch;
    PackageReplacementRules m_rules;
    QHash<QString, QString> m_shownNames;
    QHash<QString, QString> m_origins;
    QList<PackageInfoPtr> m_wanting;
    bool m_isGivenUp = false;
    QVector<PackageFile> m_waiting; ///< for what the repository lacks
    QStringList m_added; ///< names of the files that are in
    QList<PackageInfoPtr> m_leaving;

    /** The course of addFiles(). */
    struct Course
    {
        JobFrame *frame;
        int files;
        int done = 0;
        bool isStopped = false;
        bool isComplete = true; ///< no file was left out because of a stop
    };

    void addRead(const QVector<PackageFile> &files, RunSize *shared, Course *course);
    /** Takes the files out that wait until it is known whether the repository gets what they need. */
    void letWait(QVector<PackageFile> *files);
    void addWaiting(bool isLarge, Course *course);
    /** False when the job must not go on. */
    bool extend(const RepositoryExtension &extension);
    /** What the repository would need for the files; those for which that would not do need nothing. */
    RepositoryExtension lackingFor(const QVector<PackageFile> &files) const;
    /** Puts those of the files into the repository that can share a run. */
    void includeTogether(const QVector<PackageFile> &files);
    InclusionRules::Target target() const;
    /** What is said of a copied file; nothing of any other. */
    CopiedFiles::File copiedFile(const QString &path) const;
    /** The component into which the file goes; empty: its own. */
    QString componentOf(const QString &path) const;
    /** Takes the packages out of files that are not those which their repository lists. */
    void refuseChanged(QVector<PackageFile> *files) const;
    void removeLeaving();
    /** Whether reprepro, when it is told no architecture, puts the file into these places and no others. */
    bool areAllPlaces(const QVector<PackageInfo> &records, bool knowsArchitectures) const;
    ErrorCode addFile(AddedFile *file, QVector<PackageInfo> records);
    /** The file with which the first of these records collides, and which of the other records collide with it. */
    PresentFile presentFile(const QVector<PackageInfo> &records) const;
    static QString otherFileText();
    /** Says why a file that collided was not added. */
    static QString keptText(ErrorCode collision, const QString &file, const PresentFile &present);
    void askToKeepUnsigned(const AddedFile &file, const PackageInfo &record);
    /** Whether the file replaces the present one: the user's choice, for this file or for all. */
    bool mustReplace(ErrorCode collision,
                     const AddedFile &file,
                     const QString &version,
                     const PresentFile &present);
};
