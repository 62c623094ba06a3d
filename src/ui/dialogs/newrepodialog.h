// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QDialog>
#include <QStringList>

#include <functional>
#include <memory>

class Prompts;

namespace Ui
{
class NewRepoDialog;
}

/** Asks for the description and the directory of a repository for creating, importing or changing it. */
class NewRepoDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Mode { Create, Change, Import };
    /** Whether the repository in a directory is published. */
    using PublishedCheck = std::function<bool(const QString &path)>;
    /** Why a directory cannot be used for the repository; empty when it can. */
    using PathCheck = std::function<QString(const QString &path)>;

    NewRepoDialog(Mode mode, Prompts &prompts, QWidget *parent = nullptr);
    ~NewRepoDialog() override;

    /** Sets the repository to change, and its packages. */
    void setRepository(const QString &path, const RepoInfo &info, const QList<PackageInfoPtr> &packages = {});
    void setPublishedCheck(PublishedCheck check);
    void setPathCheck(PathCheck check) { m_pathRefusal = std::move(check); }
    /** Paths of repositories that the program knows: a directory that contains one is not replaced. */
    void setRemembered(const QStringList &paths) { m_remembered = paths; }
    /** Fills all fields with earlier input. */
    void setEntries(const QString &path, const RepoInfo &info);
    /** Proposes the directory of a new repository. */
    void propose(const QString &folder, const QString &name);
    /** Fills the fields that the user has not edited, for a new repository. The dialog may be open already. */
    void setDefaults(const RepoInfo &info);

    /** Directory of the repository: the path and the name. */
    QString repositoryPath() const;
    RepoInfo repoInfo() const;
    /** Whether the user wants the packages to be copied to a new code name. */
    bool carriesPackages() const { return m_carriesPackages; }

    /**
     * Checks the directory of the repository in the background, asks the necessary questions, and then closes the
     * dialog.
     */
    void accept() override;

private:
    void setUpFields();
    void selectFolder();
    bool isPublished(const QString &path) const { return m_isPublished && m_isPublished(path); }
    void showPublished(bool published);
    bool fieldsAreValid();
    bool pathIsFree();
    void focusMissingField();
    bool stays() const;
    /** The present contents of the repository's directory. */
    struct FolderState
    {
        bool exists = false;
        bool isRepository = false;
        QStringList repositories; ///< repositories below it
    };
    static FolderState stateOf(const QString &path, const QStringList &remembered);
    bool userAgreesToLosses(const FolderState &state);
    bool userAgreesToChange();
    bool mayBeReplaced(const QString &path, const FolderState &state);

    std::unique_ptr<Ui::NewRepoDialog> m_ui;
    Prompts &m_prompts;
    Mode m_mode;
    PublishedCheck m_isPublished;
    PathCheck m_pathRefusal;
    QStringList m_remembered;
    bool m_isLooking = false; ///< the directory is being checked
    QString m_path; ///< of the repository that is being changed
    RepoInfo m_info; ///< of the repository that is being changed
    QList<PackageInfoPtr> m_packages; ///< of the repository that is being changed
    bool m_carriesPackages = false;
};
