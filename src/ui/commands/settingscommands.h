// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"
#include "engine/changes/addoptions.h"
#include "installability/completecheckbase.h"
#include "ui/widgets/userchoices.h"

#include <QObject>

#include <functional>

class Prompts;
class QSettings;
class RepoTabs;
class RepoWidget;

/** The user's choices, and the dialogs for them. */
class SettingsCommands : public QObject
{
    Q_OBJECT
public:
    /** Where added packages come from. */
    enum class AddedFrom { Files, Archive };

    SettingsCommands(RepoTabs &tabs, Prompts &prompts, QObject *parent);

    const UserChoices &choices() const { return m_choices; }
    /** Reads the stored choices again. */
    void load();
    void save();
    /** Writes the settings out. Emits notStored() after the first failure of a session. */
    bool store(QSettings &settings);
    /** Shows the same message in a box, at the end of the session: the changes are lost. */
    void warnNotStored();

    enum class Confirmed { No, Yes, WithPreview };
    /**
     * The same before packages are added, if the user wants to be asked. No when the user cancels, or chooses no key
     * although packages are to be signed.
     */
    Confirmed confirmAddSettings(const QStringList &components, AddedFrom origin = AddedFrom::Files);
    /**
     * Lets the user choose a key when added packages are to be signed and no key is chosen. False when there is still
     * no key.
     */
    bool hasKeyToAdd();
    /** How packages are added now to a repository with these components. */
    AddOptions addOptions(const QStringList &components) const;
    /** Lets the user choose how packages are added to the current tab's repository. */
    void showAddPkgSettings();
    void showParametersDialog();
    /** Lets the user choose a signing key when none is chosen; false when there is still no key. */
    bool chooseKeyIfNone();
    void editExternalRepos();
    void setDependsRepoType(int type);
    /** When a preview is shown before a change: a PreviewWhen. */
    void setPreviewWhen(int when);
    /** What complete checks are made against. */
    CompleteCheckBase checkBase() const;
    void setCheckBase(const CompleteCheckBase &base);

    /** The stored list, without the sources that only apt knows. */
    const ExternalRepos &externalRepos() const { return m_externalRepos; }
    /** The user's names for origins. */
    std::function<QString(const QString &origin)> aliases() const;

    /** False hides the choices about signing. */
    void setSigningOffered(bool offered) { m_signingOffered = offered; }
    bool isSigningOffered() const { return m_signingOffered; }
    /** Whether packages that are added are to be signed. */
    bool signsOnAdd() const { return m_signingOffered && m_choices.signPackage; }

Q_SIGNALS:
    void changed();
    /** The list or its names have changed. */
    void externalReposChanged();
    /** A sentence for the user. */
    void notStored(const QString &message);

private:
    void setChoices(const UserChoices &choices);
    /** Gives the choices to the tab's engine. */
    void applyTo(const RepoWidget &widget) const;
    void applyToAll() const;
    static QString notStoredText();
    /** Lets the user choose how packages are added to `components`; `before` says that they are about to be added. */
    Confirmed editAddSettings(const QStringList &components, AddedFrom origin, bool before);

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    UserChoices m_choices;
    ExternalRepos m_externalRepos;
    bool m_signingOffered = true;
    bool m_toldNotStored = false;
};
