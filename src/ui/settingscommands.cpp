// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settingscommands.h"

#include "engine/reposhell.h"
#include "ui/addpkgsettingsdialog.h"
#include "ui/externalreposdialog.h"
#include "ui/parametersdialog.h"
#include "ui/prompts.h"
#include "ui/repotabs.h"
#include "ui/repowidget.h"

#include <QSettings>

SettingsCommands::SettingsCommands(RepoTabs &tabs, Prompts &prompts, QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
{
    load();
    connect(&m_tabs, &RepoTabs::currentChanged, this, &SettingsCommands::load);
}

void SettingsCommands::load()
{
    m_choices = UserChoices::load(QSettings());
    Q_EMIT changed();
}

void SettingsCommands::save() const
{
    QSettings settings;
    m_choices.save(settings);
}

void SettingsCommands::setChoices(const UserChoices &choices)
{
    // Stored at once: the choices are read again whenever another tab comes to the front.
    m_choices = choices;
    save();
    Q_EMIT changed();
}

bool SettingsCommands::editAddSettings(const QStringList &components)
{
    AddPkgSettingsDialog dialog(components, m_choices, qobject_cast<QWidget *>(m_prompts.parent()));
    dialog.setSigningVisible(m_signingOffered);
    if (m_prompts.run(dialog) != QDialog::Accepted)
        return false;
    setChoices(dialog.choices());
    return true;
}

void SettingsCommands::showAddPkgSettings()
{
    const RepoWidget *widget = m_tabs.current();
    if (!editAddSettings(widget == nullptr ? QStringList() : widget->repoShell()->repoInfo().componentList()))
        return;
    if (const RepoWidget *current = m_tabs.current())
        current->repoShell()->setCheckDependsOnAdd(m_choices.addPkgCheckDepends);
}

void SettingsCommands::showParametersDialog()
{
    ParametersDialog dialog(m_prompts, qobject_cast<QWidget *>(m_prompts.parent()));
    dialog.setShowPackageVersion(m_choices.showPkgVersion);
    dialog.setSignKeyId(m_choices.signKeyId);
    dialog.setSigningVisible(m_signingOffered);
    if (m_prompts.run(dialog) != QDialog::Accepted)
        return;
    UserChoices choices = m_choices;
    choices.showPkgVersion = dialog.showPackageVersion();
    choices.signKeyId = dialog.signKeyId();
    setChoices(choices);
}

void SettingsCommands::editExternalRepos()
{
    QSettings settings;
    auto *window = qobject_cast<QWidget *>(m_prompts.parent());
    ExternalReposDialog dialog(ExternalRepos::load(settings), m_prompts, window);
    if (m_prompts.run(dialog) == QDialog::Accepted && !dialog.repos().save(settings))
        m_prompts.warn(
            dialog.windowTitle(), tr("The list cannot be stored in %1.").arg(settings.fileName()), window);
}

void SettingsCommands::setDependsRepoType(int type)
{
    UserChoices choices = m_choices;
    choices.dependsRepoType = type;
    setChoices(choices);
}
