// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/processutils.h"
#include "core/repoenums.h"
#include "engine/changes/exportsession.h"
#include "engine/repository/changerules.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

struct JobContext;

/**
 * Writes the description of the open repository anew, and makes database, indices and signatures follow. A failure
 * leaves things half done: the database has been copied before (RunningPoint), and the caller undoes all of it. The
 * session is that of the job, and outlives the object.
 */
class DescriptionChange : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** `text` is the description that is in force, as it stands in its file. */
    DescriptionChange(JobContext &context, ExportSession &session, RepoChange change, QByteArray text);

    bool run();
    /** The same for a description that only gets more places. The indices are left to the end of the session. */
    bool extend();
    /** After run(): the change stands, and becomes a point of the history. */
    void commit();
    /** Why run() has failed. */
    QString details() const { return m_details; }

private:
    JobContext &m_context;
    const RepoChange m_change;
    const QByteArray m_text;
    ExportSession &m_session;
    QString m_details;

    bool write();
    ProcessResult prepare(const QList<PackageInfoPtr> &packages);
    ProcessResult carryOver(const QList<PackageInfoPtr> &packages);
    bool takeOutVanished();
    bool exportOrGiveUpSigning();
    void keepSignatures();
};
