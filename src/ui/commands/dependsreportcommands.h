// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "depends/dependsreport.h"
#include "ui/commands/workbench.h"

#include <QDateTime>
#include <QHash>
#include <QObject>

#include <optional>

class QAction;
class RepoWidget;

/** Lets the user take along what the last checks found missing in the current tab's repository. */
class DependsReportCommands : public QObject
{
    Q_OBJECT
public:
    DependsReportCommands(const Workbench &bench, QObject *parent);

    /** What the user can do, for menus. */
    QList<QAction *> actions() const { return {m_copyAction, m_saveAction}; }
    /** Shows by the actions what can be done now. */
    void updateActions();

Q_SIGNALS:
    /** What can be done now is something else than before. */
    void stateChanged();

private:
    enum class Format { Text, Json };

    /** What a report is made of. */
    struct Contents
    {
        QList<PackageInfoPtr> packages;
        DependsReport::Heading heading;
    };

    /** What is known of the check that a tab's marks come from. */
    struct Check
    {
        std::optional<int> mode; ///< none when the marks come from checks of several or of unknown modes
        QDateTime time; ///< of the last check; invalid when marks may be older than this run of the program
    };

    /** The job that a tab is at, as far as it matters for the marks. */
    struct Job
    {
        int mode = 0; ///< at its start
        bool addsToMarks = false; ///< there were some at its start
        bool hasChecked = false;
        int items = 0;
    };

    void attach(RepoWidget *widget);
    void endJob(const RepoWidget *widget, RepoEnums::JobId jobId);
    Contents contentsOf(const RepoWidget &widget) const;
    /** The report; takes a while for a large repository. From any thread. */
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
