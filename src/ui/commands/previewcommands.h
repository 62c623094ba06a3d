// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settingskeys.h"
#include "engine/preview/previewrequest.h"
#include "ui/commands/settingscommands.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <functional>
#include <vector>

class JobFeedback;
class PreviewDialog;
class Prompts;
class QMenu;
class RepoShell;
class RepoTabs;
class RepoWidget;

/**
 * Puts a preview before a change: decides whether one is due, has it made, shows it in a window, and has exactly that
 * applied. From the start to the job itself the tab is at work, so nothing else changes its repository.
 */
class PreviewCommands : public QObject
{
    Q_OBJECT
public:
    PreviewCommands(
        RepoTabs &tabs, Prompts &prompts, JobFeedback &feedback, SettingsCommands &settings, QObject *parent);

    /** A change that the user has asked for. All functions are optional except `start`. */
    struct Change
    {
        PreviewRequest request;
        /** Starts the job where no preview is due. The tab is at work already. */
        std::function<void()> start;
        /** Asks the described question where no preview is due; false: the change is given up. */
        std::function<bool()> ask = {};
        /**
         * With this, run() ends as soon as it is known whether the preview is shown, and calls it. Then proceed() or
         * giveUp() must follow. For a command whose questions stand in an open dialog.
         */
        std::function<void(bool isDue)> decided = {};
        /** The user can choose whether a new code name takes the packages over. */
        bool offersCarrying = false;
        /** The job begins now, with a preview or without. */
        std::function<void()> begun = {};
        /** The change was given up. */
        std::function<void()> givenUp = {};
    };
    enum class Wish {
        AsSet, ///< the user's setting decides
        Now ///< the user wants to see it
    };

    /** AsSet, unless the user has pressed the button for a preview in the settings of adding. */
    static Wish wishOf(SettingsCommands::Confirmed confirmed);
    /** The user's setting. */
    PreviewWhen when() const;
    /** Carries a change out, with the preview that is due. The tab must not be at work. */
    void run(RepoWidget *widget, const Change &change, Wish wish = Wish::AsSet);
    /** Whether a change waits for proceed(). It can be run() anew. */
    bool isDecided(RepoWidget *widget) const;
    /** Goes on after Change::decided: shows the preview if it is due, and starts the job otherwise. */
    void proceed(RepoWidget *widget);
    /** Ends a change after Change::decided, or before. */
    void giveUp(RepoWidget *widget);
    /** Fetches packages from apt's sources, with the preview that is due. The user has confirmed the settings. */
    void fetch(RepoWidget *widget,
               const QList<PackageInfo> &packages,
               SettingsCommands::Confirmed confirmed,
               const std::function<void()> &givenUp,
               const std::function<void()> &begun = {});
    /** Adds the choice of the setting to a menu. */
    void fillMenu(QMenu *menu);

private:
    enum class Phase {
        Finding, ///< a preview is being made
        Decided, ///< the command asks its own questions
        Waiting, ///< the window waits until another dialog is closed
        Shown, ///< in its window
        Accepted, ///< the search for the effect ends before the job can begin
        Refused, ///< the search for the effect ends
        Applying
    };
    struct Flow
    {
        Change change;
        Wish wish = Wish::AsSet;
        Phase phase = Phase::Finding;
        ChangePreview preview;
        bool hasRows = false;
        bool isOutdated = false; ///< an accepted preview did not hold any more
        bool isDue = false; ///< of a change with `decided`
        bool wantsAnew = false; ///< another request since the preview was begun
        bool wantsEffect = false; ///< rows were switched since the search for the effect began
        QPointer<PreviewDialog> dialog;
    };

    void attach(RepoWidget *widget);
    void take(RepoWidget *widget, const ChangePreview &preview);
    void jobEnded(RepoWidget *widget);
    void goOn(RepoWidget *widget);
    void decide(RepoWidget *widget, bool isDue);
    void showNext();
    void show(RepoWidget *widget);
    void connectDialog(PreviewDialog *dialog, RepoWidget *widget);
    void findAnew(RepoWidget *widget);
    void findEffect(RepoWidget *widget);
    void apply(RepoWidget *widget);
    void startPlain(RepoWidget *widget);
    /** Ends a flow whose job has begun, or will not begin. */
    void end(RepoWidget *widget, bool isGivenUp);
    void saveReport(const ChangePreview &preview);
    void compare(const ChangePreview &preview, const PreviewRow &row, PreviewDialog *parent);

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    JobFeedback &m_feedback;
    SettingsCommands &m_settings;
    QHash<RepoWidget *, Flow> m_flows;
    QHash<RepoWidget *, Change> m_plain; ///< running jobs without a preview, of which one can still be made
    QSet<RepoWidget *> m_stopped; ///< tabs whose job the user has stopped for a preview
    QString m_lastFolder;
};
