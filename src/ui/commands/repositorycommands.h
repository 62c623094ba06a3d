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
    /** What the commands must know of publications, and may do to them. */
    struct Publishing
    {
        std::function<bool(const QString &path)> isPublished;
        /** Ends all publications of the repository; `answer` comes later, unless the window is closed before. */
        std::function<void(const QString &path, const std::function<void(bool done)> &answer)> unpublish;
        /** Whether this machine's own list of sources has the line that the repository's tab shows. */
        std::function<bool(const RepoWidget &widget)> isLocalSource;
    };

    RepositoryCommands(const Workbench &bench, RecentRepositories &recent, QObject *parent);

    void setPublishing(const Publishing &publishing) { m_publishing = publishing; }

    /** What somebody does who has something for a repository that is yet to be created. */
    struct Purpose
    {
        /** Gets the widget of the repository, and another one when creating it failed and is tried again. */
        std::function<void(RepoWidget *widget)> made;
        /** Creating it failed: the widget goes, and the user is asked once more. */
        std::function<void(RepoWidget *widget)> failed;
        /** After a failure the user wants no repository any more. */
        std::function<void()> givenUp;
    };
    /** Asks for a description and creates the repository. The tab comes when it is there. False when cancelled. */
    bool createRepo(const Purpose &purpose = {});
    /** The same for what is in `source`, an archive or a folder, with a proposed place in `folder`. */
    void createForImport(const QString &source, const QString &folder, const Purpose &purpose);
    /** Asks for a directory and opens it; null when cancelled. */
    RepoWidget *chooseAndOpen();
    /**
     * Opens the repository in `path`, or brings its tab to the front. Whether it is there, and is one, is looked at
     * in the background, since its disk may not answer: the tab goes again when not.
     */
    RepoWidget *openRepo(const QString &path);
    /** Opens an entry of the recent ones, which may be gone. */
    void openRecent(const QString &path);
    /** Opens what was open when the program ended; what is gone is only noted in the log. */
    void reopen(const QStringList &paths);
    /** Whether tabs that reopen() made can still turn out to have no repository; for some seconds at most. */
    bool isReopening() const { return !m_reopened.isEmpty(); }
    /** Asks for a new description of the current tab's repository and applies it. */
    void changeRepo();
    /** Deletes the current tab's repository after a question. */
    void removeRepo();

    /** The path with links resolved; that of an open repository is known, any other is looked up. */
    QString canonicalPathOf(const QString &path) const;
    /** Whether a repository is being deleted. */
    bool isRemoving() const { return !m_removing.isEmpty(); }

Q_SIGNALS:
    /** The last deletion has ended. */
    void removalsEnded();
    /** isReopening() has become false; a tab with no repository may be just about to go. */
    void reopeningEnded();

private:
    void fillDefaults(NewRepoDialog *dialog);
    /** One repository that the user wants, from the dialog to its end. */
    struct Creation
    {
        NewRepoDialog::Mode mode = NewRepoDialog::Mode::Create;
        QString failure; ///< what is said when nothing came of it
        QString source; ///< of an import
        Purpose purpose;
        QString path; ///< proposed or, like the description, typed in
        RepoInfo info;
        bool isTypedIn = false;
    };
    bool create(Creation creation);
    void createAgain(const Creation &creation);
    /** Where repositories are or were. */
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
    QSet<const RepoWidget *> m_reopened; ///< tabs from the last time that are still being looked at
};
