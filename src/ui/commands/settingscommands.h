// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"
#include "engine/changes/addoptions.h"
#include "ui/widgets/userchoices.h"

#include <QObject>

#include <functional>

class Prompts;
class QSettings;
class RepoTabs;
class RepoWidget;

/** The dialogs in which the user's choices are made, and the choices themselves. */
class SettingsCommands : public QObject
{
    Q_OBJECT
public:
    /** What the packages that are added come from. */
    enum class AddedFrom { Files, Archive };

    SettingsCommands(RepoTabs &tabs, Prompts &prompts, QObject *parent);

    const UserChoices &choices() const { return m_choices; }
    /** Reads the stored choices again. */
    void load();
    void save();
    /** Writes the settings out. When that fails it says so, once in a session, by notStored(). */
    bool store(QSettings &settings);
    /** The same as a box, for the end of the session: what the user has changed is lost. */
    void warnNotStored();

    /** Lets the user say how packages are added; false when cancelled. `components`: where they can go. */
    bool editAddSettings(const QStringList &components, AddedFrom origin = AddedFrom::Files);
    /**
     * The same before packages are added, if the user wants to be asked; false when cancelled, or when packages are to
     * be signed and the user chooses no key.
     */
    bool confirmAddSettings(const QStringList &components, AddedFrom origin = AddedFrom::Files);
    /**
     * Lets the user choose a key where packages that are added are to be signed and no key has been chosen; false when
     * there is still none.
     */
    bool hasKeyToAdd();
    /** How packages are added now to a repository with these components. */
    AddOptions addOptions(const QStringList &components) const;
    /** The same as editAddSettings() for the current tab's repository. */
    void showAddPkgSettings();
    void showParametersDialog();
    /** Lets the user choose a signing key where none has been chosen; false when there is still none. */
    bool chooseKeyIfNone();
    void editExternalRepos();
    void setDependsRepoType(int type);

    /** The stored list; it does not know what apt knows. */
    const ExternalRepos &externalRepos() const { return m_externalRepos; }
    /** The user's names for origins. */
    std::function<QString(const QString &origin)> aliases() const;

    /** Hides what makes no sense on this release of the system. */
    void setSigningOffered(bool offered) { m_signingOffered = offered; }
    bool isSigningOffered() const { return m_signingOffered; }
    /** Whether packages that are added are to be signed. */
    bool signsOnAdd() const { return m_signingOffered && m_choices.signPackage; }

Q_SIGNALS:
    void changed();
    /** Another list, or other names in it. */
    void externalReposChanged();
    /** A sentence for the user. */
    void notStored(const QString &message);

private:
    void setChoices(const UserChoices &choices);
    /** Tells the engine what its jobs must know of the choices. */
    void applyTo(const RepoWidget &widget) const;
    void applyToAll() const;
    static QString notStoredText();

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    UserChoices m_choices;
    ExternalRepos m_externalRepos;
    bool m_signingOffered = true;
    bool m_toldNotStored = false;
};
