// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QDialog>
#include <QStringList>

#include <functional>
#include <memory>

class FurtherFields;
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
    /** What a preview of the change has told. */
    enum class Previewed {
        Due, ///< it is shown next, and replaces the questions about the change
        NotDue,
        Failed ///< or was stopped; the dialog stays open
    };
    using Answer = std::function<void(Previewed previewed)>;
    /** Finds out whether a preview of the change is due; `isWished`: the user wants to see it. */
    using PreviewCheck = std::function<void(bool isWished, const Answer &answer)>;
    /** Offers a preview of a change. The check comes before the questions. */
    void setPreviewCheck(PreviewCheck check);
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
    /** Makes the dialog as high as its contents, on a small screen less high. */
    void fitHeight();
    bool fieldsAreValid();
    bool furtherFieldsAreValid();
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
    void checkPreview(const FolderState &state);
    void setBusy(bool busy);
    bool userAgreesToLosses(const FolderState &state, bool isPreviewed);
    bool userAgreesToChange();
    bool mayBeReplaced(const QString &path, const FolderState &state);

    std::unique_ptr<Ui::NewRepoDialog> m_ui;
    FurtherFields *m_further;
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
    PreviewCheck m_checkPreview;
    bool m_wantsPreview = false;
};
