// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settingskeys.h"
#include "core/storedvalues.h"

#include <QString>
#include <QStringList>

class QSettings;

/** The user's choices that are stored between runs. A stored value of a wrong type counts as missing. */
struct UserChoices
{
    QString currentComponent; ///< component to which packages are added; empty: each package's own
    bool signPackage = false;
    QString signKeyId;
    bool showAddPkgSettings = true; ///< ask before each addition of packages
    bool showPkgVersion = true; ///< show versions in the package tree
    bool addPkgCheckDepends = true;
    int dependsRepoType = DependsEverywhere;
    int completeCheckBase = 2; ///< the number of a CompleteCheckBase::Kind: the public sources
    QString completeCheckRepository; ///< path of the repository that a complete check looks into
    QStringList completeCheckArchitectures; ///< foreign architectures of a complete check
    int previewWhen = PreviewWhenBreaking; ///< when a preview is shown before a change: a PreviewWhen

    static UserChoices load(const QSettings &settings);
    void save(QSettings &settings) const;
};

/** The most recent repositories that are stored. */
constexpr int MaximumRecentRepositories = 5;

/** `list` with `path` at its start and nowhere else, cut to the maximum length. */
QStringList withRecentRepository(QStringList list, const QString &path);

/** A stored list of paths; empty when there is none. */
QStringList storedPaths(const QSettings &settings, const QString &key);
