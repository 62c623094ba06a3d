// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"
#include "publication/helperclient.h"
#include "ui/dialogs/prompts.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <functional>

class ElidedLabel;
class QPlainTextEdit;
class QProgressBar;
class QStatusBar;
class QToolButton;
class RepoTabs;
class RepoWidget;

/**
 * Shows the jobs to the user: progress and messages in the status bar, everything in the log, errors in boxes. It also
 * asks the questions of jobs. The status bar shows the current tab. A desktop notification tells of a long job that
 * ends while the user works in another window.
 */
class JobFeedback : public QObject
{
    Q_OBJECT
public:
    JobFeedback(
        RepoTabs &tabs, Prompts &prompts, QStatusBar *statusBar, QPlainTextEdit *log, QObject *parent);

    /** Appends one line with the time of day to the log. */
    void appendLog(const QString &inMessage);
    /** Shows a message in the status bar and puts it into the log. */
    void announce(const QString &message);
    /** An error for the user. */
    struct Trouble
    {
        QString text; ///< empty: there is none
        QString details;
        QString advice; ///< what the user can do about it; not for the log
    };
    /** What the privileged helper could not do; nothing when it could, or gave no reason. */
    static Trouble troubleOf(const HelperClient::Result &result);
    /**
     * Shows that the tab waits for the system, which nothing can stop: a text and a bar without an end. Without a tab
     * it is the text alone.
     */
    void showWaiting(RepoWidget *widget, const QString &message);
    /** Ends the waiting with a last word, which goes into the log too, and shows the error if there is one. */
    void endWaiting(RepoWidget *widget, const QString &message, const Trouble &trouble = {});
    /** Tells whether the running job of a tab can be stopped for a preview of what is left; see previewWanted(). */
    void setPreviewOffer(std::function<bool(RepoWidget *widget)> offer)
    {
        m_offersPreview = std::move(offer);
    }
    /** From now on errors of the tab come into the log, and to troubled(), but in no box. */
    void setQuiet(RepoWidget *widget, bool quiet);
    /** Asks the tab's job to stop. */
    void stopJobOf(RepoWidget *widget);
    /** Shows an error of what the tab wanted, in a box unless it is quiet. */
    void errorOf(RepoWidget *widget, const QString &text, const QString &details, RepoEnums::ErrorType type);
    /** Shows an error box and puts the error into the log. */
    void
    error(const QString &text, const QString &details = {}, RepoEnums::ErrorType type = RepoEnums::CRITICAL);

Q_SIGNALS:
    /** The user has stopped the tab's job at a question, to see a preview of what is left. */
    void previewWanted(RepoWidget *widget);
    /** The last word of a job or a waiting. */
    void told(RepoWidget *widget, const QString &message);
    /** An error of a job or a waiting. */
    void troubled(RepoWidget *widget, const QString &text, const QString &details);

private:
    struct Job
    {
        int maximum = 0; ///< 0: unknown
        int value = 0;
        QString message;
        bool shown = false; ///< the job runs
        bool stopping = false;
        bool stoppable = true;
        QList<Prompts::Error> errors; ///< of the running job; one box shows them at its end
        QElapsedTimer runningTime;
    };

    void attach(RepoWidget *widget);
    void jobStarted(RepoWidget *widget, const QString &message);
    void jobFinished(RepoWidget *widget, const QString &message);
    /** `details` are those for the log. */
    void jobError(RepoWidget *widget, const Prompts::Error &error, const QString &details);
    void logError(const RepoWidget *widget, const QString &text, const QString &details);
    void notifyDesktop(const RepoWidget *widget, const Job &job) const;
    void showCurrent();
    void stop();
    void appendLog(const RepoWidget *widget, const QString &message);
    void askUser(const QPointer<RepoWidget> &widget, const QString &title, const QString &text);
    void packagesReplacementHandler(const QPointer<RepoWidget> &widget,
                                    RepoEnums::ErrorCode collision,
                                    PackageReplacementRules *rules,
                                    const PackageInfoPtr &package,
                                    bool singlePackage);
    /** The repository of a question; empty when only one repository is open. */
    QString about(const QPointer<RepoWidget> &widget) const;
    /** The same as the title of the tab. */
    QString shortlyAbout(const RepoWidget *widget) const;

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    QPlainTextEdit *m_log;
    ElidedLabel *m_message;
    QProgressBar *m_progressBar;
    QToolButton *m_stopButton;
    QHash<const RepoWidget *, Job> m_jobs;
    QSet<const RepoWidget *> m_quiet;
    std::function<bool(RepoWidget *widget)> m_offersPreview;
};
