// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settingskeys.h"
#include "core/storedvalues.h"

#include <QString>
#include <QStringList>

class QSettings;

/** The user's choices that are kept between runs. A stored value of another type than expected counts as absent. */
struct UserChoices
{
    QString currentComponent; ///< component that packages are added to; empty: each package's own
    bool signPackage = false;
    QString signKeyId;
    bool showAddPkgSettings = true; ///< ask before each add
    bool showPkgVersion = true; ///< show versions in the package tree
    bool addPkgCheckDepends = true;
    int dependsRepoType = DependsEverywhere;

    static UserChoices load(const QSettings &settings);
    void save(QSettings &settings) const;
};

/** The longest list of recent repositories that is kept. */
constexpr int MaximumRecentRepositories = 5;

/** `list` with `path` at its head and nowhere else, cut to the longest length. */
QStringList withRecentRepository(QStringList list, const QString &path);

/** A stored list of paths; empty when there is none. */
QStringList storedPaths(const QSettings &settings, const QString &key);
