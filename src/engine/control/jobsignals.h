// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"
#include "core/repoenums.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

/** The signals of an engine that its jobs emit, on the job's thread. */
class JobSignals : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

Q_SIGNALS:
    void packageAdded(const PackageInfoPtr &packageInfo);
    void packageChanged(const PackageInfoPtr &packageInfo);
    void packageRemoved(const PackageInfoPtr &packageInfo);
    void critical(const QString &text,
                  const QString &detailedtext = QString(),
                  RepoEnums::ErrorType error = RepoEnums::CRITICAL,
                  RepoEnums::ErrorCause cause = RepoEnums::OTHER_CAUSE);
    /** What critical() and noted() tell next is about this file; empty: about the job. */
    void fileBegun(const QString &file);
    /** A line for the log, for example about a file that was not added. The user need not do anything. */
    void noted(const QString &text);
    /** The summary of a dependency check, in words, one string for each line. */
    void dependsSummary(const QStringList &lines);
    void downloadablePackagesReady();
    void started(const QString &startMsg);
    /** The job goes on after a stop and can be stopped again: the user has taken the stop back, or the stop was for a
     *  part of the job that has ended. */
    void goingOn();
    void finished(RepoEnums::JobId jobId, const QString &finishMsg);
    /** The number of items of the job; 0 = not known. */
    void progressRangeChanged(int range);
    void progressStepChanged(int step);
    /** The job needs a yes or no; answer with RepoShell::setAnswer(). Connect blocking queued. */
    void question(const QString &dialogTitle, const QString &text);
    /** An added package exists already; write the choice into `rule`. Connect blocking queued. */
    void requestForReplacementHandlingByUser(RepoEnums::ErrorCode error,
                                             PackageReplacementRules *rule,
                                             const PackageInfoPtr &pkg,
                                             bool singlePackage = false);
    /** A repository was opened, created or closed (empty argument), or moved by a change (its new path). */
    void pathChanged(const QString &newPath = QString());
    /** The description was read. */
    void repoInfoAdded();
    /** The user wants to import the packages of a folder that is no repository. */
    void needImportRepo();
    void needCloseRepo();
    /** The requests are for the stored results of checks; connect all of them blocking queued. */
    void requestForStoredInformation(const QString &repoPath);
    void requestForMergingInformation(const QList<PackageInfoPtr> &packages);
    void requestForMovingStoredInformation(const QString &newPath);
    void requestForSavingPackages(const QList<PackageInfoPtr> &packages);
    /** The repository holds no package any more. */
    void requestForClearingStoredInformation();
};
