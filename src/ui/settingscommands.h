// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/userchoices.h"

#include <QObject>

class Prompts;
class RepoTabs;

/** The dialogs in which the user's choices are made, and the choices themselves. */
class SettingsCommands : public QObject
{
    Q_OBJECT
public:
    SettingsCommands(RepoTabs &tabs, Prompts &prompts, QObject *parent);

    const UserChoices &choices() const { return m_choices; }
    /** Reads the stored choices again. */
    void load();
    void save() const;

    /** Lets the user say how packages are added; false when cancelled. `components`: where they can go. */
    bool editAddSettings(const QStringList &components);
    /** The same for the current tab's repository. */
    void showAddPkgSettings();
    void showParametersDialog();
    void editExternalRepos();
    void setDependsRepoType(int type);

    /** Hides what makes no sense on this release of the system. */
    void setSigningOffered(bool offered) { m_signingOffered = offered; }
    bool isSigningOffered() const { return m_signingOffered; }

Q_SIGNALS:
    void changed();

private:
    void setChoices(const UserChoices &choices);

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    UserChoices m_choices;
    bool m_signingOffered = true;
};
