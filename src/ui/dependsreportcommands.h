// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "depends/dependsreport.h"

#include <QObject>

class JobFeedback;
class Prompts;
class QAction;
class RepoTabs;
class RepoWidget;
class SettingsCommands;

/** Lets the user take along what the last checks found missing in the current tab's repository. */
class DependsReportCommands : public QObject
{
    Q_OBJECT
public:
    DependsReportCommands(
        RepoTabs &tabs, Prompts &prompts, JobFeedback &feedback, SettingsCommands &settings, QObject *parent);

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

    Contents contentsOf(const RepoWidget &widget) const;
    /** The report; takes a while for a large repository. From any thread. */
    static QByteArray report(const Contents &contents, Format format);
    void copy();
    void save();

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    JobFeedback &m_feedback;
    SettingsCommands &m_settings;
    QAction *m_copyAction;
    QAction *m_saveAction;
    QString m_lastFolder;
};
