// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/jobs/upgraderules.h"
#include "ui/widgets/checktabledialog.h"

#include <functional>

/** Asks which of the packages with newer versions are upgraded; at first all are. */
class UpgradePackagesDialog : public CheckTableDialog
{
    Q_OBJECT
public:
    /** `alias` gives the user's name for the origin of a version. */
    UpgradePackagesDialog(QVector<UpgradablePackage> packages,
                          const std::function<QString(const QString &origin)> &alias,
                          QWidget *parent);

    /** What the user has kept. */
    QVector<UpgradablePackage> packages() const;

private:
    QVector<UpgradablePackage> m_packages;
};
