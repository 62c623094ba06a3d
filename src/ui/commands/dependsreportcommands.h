// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "depends/dependsreport.h"
#include "installability/completecheckrecord.h"
#include "ui/commands/workbench.h"

#include <QDateTime>
#include <QHash>
#include <QObject>

#include <optional>

class QAction;
class RepoWidget;

/**
 * Copies or saves a report of the missing dependencies that the last checks found in the current repository. What a
 * complete check has found follows as a section of the same report.
 */
class DependsReportCommands : public QObject
{
    Q_OBJECT
public:
    DependsReportCommands(const Workbench &bench, QObject *parent);

    /** The commands, for menus. */
    QList<QAction *> actions() const { return {m_copyAction, m_saveAction}; }
    /** Enables the actions that are possible now. */
    void updateActions();

Q_SIGNALS:
    /** Other actions are possible now. */
    void stateChanged();

private:
    enum class Format { Text, Json };

    /** The contents of a report. */
    struct Contents
    {
        QList<PackageInfoPtr> packages;
        DependsReport::Heading heading;
        CompleteCheckRecord completeCheck;
    };

    /** The check from which a tab's marks come. */
    struct Check
    {
        std::optional<int> mode; ///< empty: the checks had several modes, or unknown ones
        QDateTime time; ///< of the last check; invalid: some marks may be older than this run of the program
    };

    /** The running job of a tab, as far as it matters for the marks. */
    struct Job
    {
        int mode = 0; ///< at the start of the job
        bool addsToMarks = false; ///< there were marks at the start
        bool hasChecked = false;
        int items = 0;
    };

    void attach(RepoWidget *widget);
    void endJob(const RepoWidget *widget, RepoEnums::JobId jobId);
    Contents contentsOf(const RepoWidget &widget) const;
    /** Writes the report. Slow for a large repository; can be called from any thread. */
    static QByteArray report(const Contents &contents, Format format);
    void copy();
    void save();

    Workbench m_bench;
    QAction *m_copyAction;
    QAction *m_saveAction;
    QString m_lastFolder;
    QHash<const RepoWidget *, Job> m_jobs;
    QHash<const RepoWidget *, Check> m_checks;
};
