// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/userchoices.h"

#include <QSettings>
#include <QVariant>

UserChoices UserChoices::load(const QSettings &settings)
{
    const UserChoices defaults;
    UserChoices choices;
    choices.currentComponent = settings.value(SettingsKey::CurrentComponent).toString();
    choices.signPackage = storedBool(settings, SettingsKey::SignPackage, defaults.signPackage);
    choices.signKeyId = settings.value(SettingsKey::SignKeyId).toString();
    choices.showAddPkgSettings
        = storedBool(settings, SettingsKey::ShowAddPkgSettings, defaults.showAddPkgSettings);
    choices.showPkgVersion = storedBool(settings, SettingsKey::ShowPkgVersion, defaults.showPkgVersion);
    choices.addPkgCheckDepends
        = storedBool(settings, SettingsKey::AddPkgCheckDepends, defaults.addPkgCheckDepends);
    bool isNumber = false;
    const int type = settings.value(SettingsKey::DependsRepoType).toInt(&isNumber);
    if (isNumber && type >= DependsNowhere && type <= DependsEverywhere)
        choices.dependsRepoType = type;
    constexpr int BaseKinds = 4;
    const int base = settings.value(SettingsKey::CompleteCheckBase).toInt(&isNumber);
    if (isNumber && base >= 0 && base < BaseKinds)
        choices.completeCheckBase = base;
    choices.completeCheckRepository = settings.value(SettingsKey::CompleteCheckRepository).toString();
    choices.completeCheckArchitectures = storedPaths(settings, SettingsKey::CompleteCheckArchitectures);
    const int when = settings.value(SettingsKey::PreviewWhen).toInt(&isNumber);
    if (isNumber && when >= PreviewAlways && when <= PreviewNever)
        choices.previewWhen = when;
    return choices;
}

void UserChoices::save(QSettings &settings) const
{
    settings.setValue(SettingsKey::CurrentComponent, currentComponent);
    settings.setValue(SettingsKey::SignPackage, signPackage);
    settings.setValue(SettingsKey::SignKeyId, signKeyId);
    settings.setValue(SettingsKey::ShowAddPkgSettings, showAddPkgSettings);
    settings.setValue(SettingsKey::ShowPkgVersion, showPkgVersion);
    settings.setValue(SettingsKey::AddPkgCheckDepends, addPkgCheckDepends);
    settings.setValue(SettingsKey::DependsRepoType, dependsRepoType);
    settings.setValue(SettingsKey::CompleteCheckBase, completeCheckBase);
    settings.setValue(SettingsKey::CompleteCheckRepository, completeCheckRepository);
    settings.setValue(SettingsKey::CompleteCheckArchitectures, completeCheckArchitectures);
    settings.setValue(SettingsKey::PreviewWhen, previewWhen);
}

QStringList withRecentRepository(QStringList list, const QString &path)
{
    list.removeAll(path);
    list.prepend(path);
    return list.mid(0, MaximumRecentRepositories);
}

QStringList storedPaths(const QSettings &settings, const QString &key)
{
    QStringList paths = settings.value(key).toStringList();
    paths.removeAll(QString());
    return paths;
}
