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

/** Asks for the description and the place of a repository that is to be created, imported into, or changed. */
class NewRepoDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Mode { Create, Change, Import };
    /** Tells whether the repository in a directory is published. */
    using PublishedCheck = std::function<bool(const QString &path)>;
    /** Tells why a directory cannot become the repository; empty when it can. */
    using PlaceCheck = std::function<QString(const QString &path)>;

    NewRepoDialog(Mode mode, Prompts &prompts, QWidget *parent = nullptr);
    ~NewRepoDialog() override;

    /** The repository that is to be changed, and what it holds. */
    void setRepository(const QString &path, const RepoInfo &info, const QList<PackageInfoPtr> &packages = {});
    void setPublishedCheck(PublishedCheck check);
    void setPlaceCheck(PlaceCheck check) { m_placeRefusal = std::move(check); }
    /** Repositories that are known to the program: a directory that holds one is not replaced. */
    void setRemembered(const QStringList &paths) { m_remembered = paths; }
    /** Fills all fields, with what was typed before. */
    void setEntries(const QString &path, const RepoInfo &info);
    /** Proposes where a new repository shall lie. */
    void propose(const QString &folder, const QString &name);
    /** Fills the fields that the user has not touched, for a new repository; may come while the dialog is open. */
    void setDefaults(const RepoInfo &info);

    /** Directory of the repository: the path and the name. */
    QString repositoryPath() const;
    RepoInfo repoInfo() const;
    /** Whether the packages go over to a new code name, as the user has chosen. */
    bool carriesPackages() const { return m_carriesPackages; }

    /** Looks at the repository's directory aside, asks what there is to ask, and closes the dialog after that. */
    void accept() override;

private:
    void setUpFields();
    void selectFolder();
    bool isPublished(const QString &path) const { return m_isPublished && m_isPublished(path); }
    void showPublished(bool published);
    bool fieldsAreValid();
    bool placeIsFree();
    void focusMissingField();
    bool stays() const;
    /** What lies in the place of the repository. */
    struct Place
    {
        bool exists = false;
        bool isRepository = false;
        QStringList repositories; ///< below it
    };
    static Place lookAt(const QString &path, const QStringList &remembered);
    bool userAgreesToLosses(const Place &place);
    bool userAgreesToChange();
    bool mayBeReplaced(const QString &path, const Place &place);

    std::unique_ptr<Ui::NewRepoDialog> m_ui;
    Prompts &m_prompts;
    Mode m_mode;
    PublishedCheck m_isPublished;
    PlaceCheck m_placeRefusal;
    QStringList m_remembered;
    bool m_isLooking = false; ///< at the directory, before the dialog is accepted
    QString m_path; ///< of the repository that is being changed
    RepoInfo m_info; ///< of the repository that is being changed
    QList<PackageInfoPtr> m_packages; ///< of the repository that is being changed
    bool m_carriesPackages = false;
};
