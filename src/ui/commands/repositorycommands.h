// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"
#include "ui/commands/workbench.h"
#include "ui/dialogs/newrepodialog.h"

#include <QByteArray>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <functional>

class RecentRepositories;
class RepoShell;
class RepoWidget;

/** The commands on whole repositories: new, open, change, remove. */
class RepositoryCommands : public QObject
{
    Q_OBJECT
public:
    /** What the commands know of publications, and can do to them. */
    struct Publishing
    {
        std::function<bool(const QString &path)> isPublished;
        /** Ends all publications of the repository; `answer` comes later, unless the window is closed before. */
        std::function<void(const QString &path, const std::function<void(bool done)> &answer)> unpublish;
        /** Whether this machine's own list of sources has a line of the tab's repository. */
        std::function<bool(const RepoWidget &widget)> isLocalSource;
    };

    RepositoryCommands(const Workbench &bench, RecentRepositories &recent, QObject *parent);

    void setPublishing(const Publishing &publishing) { m_publishing = publishing; }

    /** What a caller does with a repository that is created for its packages. */
    struct Purpose
    {
        /** Gets the widget of the repository; called again with another widget after a failure and a new try. */
        std::function<void(RepoWidget *widget)> made;
        /** Creating the repository failed. The widget will be deleted, and the user is asked once more. */
        std::function<void(RepoWidget *widget)> failed;
        /** The user gave up after a failure. */
        std::function<void()> givenUp;
    };
    /** Asks for a description and creates the repository. Its tab is shown at the end. False when cancelled. */
    bool createRepo(const Purpose &purpose = {});
    /** The same for the packages in `source`, an archive or a folder. Proposes a place in `folder`. */
    void createForImport(const QString &source, const QString &folder, const Purpose &purpose);
    /** Asks for a directory and opens it; null when cancelled. */
    RepoWidget *chooseAndOpen();
    /**
     * Opens the repository in `path`, or brings its tab to the front. The directory is checked on another thread,
     * because its disk may not answer. The tab is closed again when there is no repository.
     */
    RepoWidget *openRepo(const QString &path);
    /** Opens a recent repository, whose directory may have been deleted. */
    void openRecent(const QString &path);
    /** Opens the repositories of the last session. Missing ones are only noted in the log. */
    void reopen(const QStringList &paths);
    /** Whether reopen() is still checking its directories; for some seconds at most. */
    bool isReopening() const { return !m_reopened.isEmpty(); }
    /** Asks for a new description of the current tab's repository and applies it. */
    void changeRepo();
    /** Deletes the current tab's repository after a question. */
    void removeRepo();

    /** The path with links resolved. Reads the file system unless the repository is open. */
    QString canonicalPathOf(const QString &path) const;
    /** Whether a repository is being deleted. */
    bool isRemoving() const { return !m_removing.isEmpty(); }

Q_SIGNALS:
    /** The last deletion has ended. */
    void removalsEnded();
    /** isReopening() has become false. A tab without a repository may be about to close. */
    void reopeningEnded();

private:
    void fillDefaults(NewRepoDialog *dialog);
    /** The creation of one repository, from the dialog to the end. */
    struct Creation
    {
        NewRepoDialog::Mode mode = NewRepoDialog::Mode::Create;
        QString failure; ///< the message after a failure
        QString source; ///< of an import
        Purpose purpose;
        QString path; ///< proposed, or typed in like the description
        RepoInfo info;
        bool isTypedIn = false;
    };
    bool create(Creation creation);
    void createAgain(const Creation &creation);
    /** The directories where repositories are or were. */
    QStringList remembered() const;
    /**
     * Calls `look` with the path of the current tab's repository on another thread, then `next` with the tab and what
     * was found. The tab must still be free then.
     */
    template <typename Work, typename Next>
    void lookFirst(const Work &look, const Next &next);
    void change(RepoWidget *widget, const QByteArray &description);
    void askForRemoval(RepoWidget *widget);
    /** What the file system knows of a path. */
    struct FolderState
    {
        QString canonicalPath; ///< with links resolved
        bool isFolder = false;
        bool isRepository = false;
    };
    static FolderState stateOf(const QString &path);
    RepoWidget *showRepo(const QString &path, bool again);
    void endReopening(const RepoWidget *widget);
    void openWhatIsThere(RepoWidget *widget, const QString &path, const FolderState &state, bool again);
    /** Adds the path to the recent repositories when the engine has opened it. */
    void rememberOnceOpen(const RepoShell &shell, const QString &path);
    void remove(RepoWidget *widget);
    void startRemoval(const QString &path, const QString &canonicalPath);

    Workbench m_bench;
    RecentRepositories &m_recent;
    Publishing m_publishing;
    QStringList m_removing; ///< directories that are being deleted
    QSet<const RepoWidget *> m_reopened; ///< tabs of reopen() whose directories are still being checked
};
