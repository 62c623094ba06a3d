// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/settingscommands.h"

#include "engine/reposhell.h"
#include "ui/dialogs/addpkgsettingsdialog.h"
#include "ui/dialogs/parametersdialog.h"
#include "ui/dialogs/prompts.h"
#include "ui/sources/externalreposdialog.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QSettings>

SettingsCommands::SettingsCommands(RepoTabs &tabs, Prompts &prompts, QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
{
    QSettings settings;
    m_externalRepos = ExternalRepos::load(settings);
    load();
    connect(&m_tabs, &RepoTabs::created, this, [this](const RepoWidget *widget) { applyTo(*widget); });
    connect(&m_tabs, &RepoTabs::currentChanged, this, &SettingsCommands::load);
}

void SettingsCommands::load()
{
    m_choices = UserChoices::load(QSettings());
    applyToAll();
    Q_EMIT changed();
}

void SettingsCommands::applyTo(const RepoWidget &widget) const
{
    RepoShell *engine = widget.repoShell();
    engine->setCheckDependsOnAdd(m_choices.addPkgCheckDepends);
    engine->setDependsRepoType(m_choices.dependsRepoType);
    engine->setExternalRepos(m_externalRepos);
}

void SettingsCommands::applyToAll() const
{
    const QList<RepoWidget *> widgets = m_tabs.shown();
    for (const RepoWidget *widget : widgets)
        applyTo(*widget);
}

void SettingsCommands::save()
{
    QSettings settings;
    m_choices.save(settings);
    store(settings);
}

bool SettingsCommands::store(QSettings &settings)
{
    // A new object would not see the values as long as there is no file.
    settings.sync();
    if (settings.status() != QSettings::AccessError)
        return true;
    if (!m_toldNotStored) {
        m_toldNotStored = true;
        Q_EMIT notStored(notStoredText());
    }
    return false;
}

void SettingsCommands::warnNotStored()
{
    m_prompts.warn(tr("Settings"), notStoredText());
}

QString SettingsCommands::notStoredText()
{
    return tr("The settings cannot be stored in %1.").arg(QSettings().fileName());
}

void SettingsCommands::setChoices(const UserChoices &choices)
{
    // The choices are stored at once, because each change of the tab reads them again.
    m_choices = choices;
    save();
    applyToAll();
    Q_EMIT changed();
}

SettingsCommands::Confirmed
SettingsCommands::editAddSettings(const QStringList &components, AddedFrom origin, bool before)
{
    AddPkgSettingsDialog dialog(components, m_choices, m_prompts, m_prompts.window());
    dialog.setSigningVisible(m_signingOffered);
    dialog.setDependsCheckVisible(origin == AddedFrom::Files);
    if (before)
        dialog.offerPreview();
    if (m_prompts.run(dialog) != QDialog::Accepted)
        return Confirmed::No;
    setChoices(dialog.choices());
    return dialog.wantsPreview() ? Confirmed::WithPreview : Confirmed::Yes;
}

SettingsCommands::Confirmed SettingsCommands::confirmAddSettings(const QStringList &components,
                                                                 AddedFrom origin)
{
    const Confirmed confirmed
        = m_choices.showAddPkgSettings ? editAddSettings(components, origin, true) : Confirmed::Yes;
    return confirmed != Confirmed::No && hasKeyToAdd() ? confirmed : Confirmed::No;
}

bool SettingsCommands::hasKeyToAdd()
{
    return !signsOnAdd() || chooseKeyIfNone();
}

AddOptions SettingsCommands::addOptions(const QStringList &components) const
{
    AddOptions options;
    // The component may belong to another repository. Packages then keep their own component.
    if (components.contains(m_choices.currentComponent))
        options.component = m_choices.currentComponent;
    options.signKeyId = m_choices.signKeyId;
    options.sign = signsOnAdd();
    return options;
}

void SettingsCommands::showAddPkgSettings()
{
    const RepoWidget *widget = m_tabs.current();
    const QStringList components
        = widget == nullptr ? QStringList() : widget->repoShell()->repoInfo().componentList();
    if (editAddSettings(components, AddedFrom::Files, false) != Confirmed::No)
        hasKeyToAdd();
}

void SettingsCommands::showParametersDialog()
{
    ParametersDialog dialog(m_prompts, m_prompts.window());
    dialog.setShowPackageVersion(m_choices.showPkgVersion);
    dialog.setSignKeyId(m_choices.signKeyId);
    dialog.setSigningVisible(m_signingOffered);
    if (m_signingOffered)
        dialog.readKeys();
    if (m_prompts.run(dialog) != QDialog::Accepted)
        return;
    UserChoices choices = m_choices;
    choices.showPkgVersion = dialog.showPackageVersion();
    choices.signKeyId = dialog.signKeyId();
    setChoices(choices);
}

bool SettingsCommands::chooseKeyIfNone()
{
    if (m_choices.signKeyId.isEmpty()
        && m_prompts.ask(tr("Package signing"),
                         tr("No key is chosen to sign packages with. Do you want to choose one?"))
               == Prompts::Answer::Yes)
        showParametersDialog();
    return !m_choices.signKeyId.isEmpty();
}

void SettingsCommands::editExternalRepos()
{
    QSettings settings;
    auto *window = m_prompts.window();
    ExternalReposDialog dialog(ExternalRepos::load(settings), m_prompts, window);
    if (m_prompts.run(dialog) != QDialog::Accepted)
        return;
    if (!dialog.repos().save(settings)) {
        m_prompts.warn(
            dialog.windowTitle(), tr("The list cannot be stored in %1.").arg(settings.fileName()), window);
        return;
    }
    m_externalRepos = dialog.repos();
    applyToAll();
    Q_EMIT externalReposChanged();
}

std::function<QString(const QString &)> SettingsCommands::aliases() const
{
    return [repos = m_externalRepos](const QString &origin) { return repos.aliasOf(origin); };
}

void SettingsCommands::setDependsRepoType(int type)
{
    UserChoices choices = m_choices;
    choices.dependsRepoType = type;
    setChoices(choices);
}

void SettingsCommands::setPreviewWhen(int when)
{
    UserChoices choices = m_choices;
    choices.previewWhen = when;
    setChoices(choices);
}

CompleteCheckBase SettingsCommands::checkBase() const
{
    CompleteCheckBase base;
    base.kind = static_cast<CompleteCheckBase::Kind>(m_choices.completeCheckBase);
    base.repository = m_choices.completeCheckRepository;
    base.foreignArchitectures = m_choices.completeCheckArchitectures;
    // Without a path nothing can be looked into.
    if (base.kind == CompleteCheckBase::Repository && base.repository.isEmpty())
        base.kind = CompleteCheckBase().kind;
    if (base.kind != CompleteCheckBase::Repository)
        base.repository.clear();
    return base;
}

void SettingsCommands::setCheckBase(const CompleteCheckBase &base)
{
    UserChoices choices = m_choices;
    choices.completeCheckBase = base.kind;
    choices.completeCheckRepository = base.repository;
    choices.completeCheckArchitectures = base.foreignArchitectures;
    setChoices(choices);
}
