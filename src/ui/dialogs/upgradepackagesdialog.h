// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/upgrade/upgraderules.h"
#include "ui/widgets/checktabledialog.h"

#include <functional>

/** Lets the user choose which packages with newer versions are upgraded. At first all are chosen. */
class UpgradePackagesDialog : public CheckTableDialog
{
    Q_OBJECT
public:
    /** `alias` returns the user's name for the origin of a version. */
    UpgradePackagesDialog(QVector<UpgradablePackage> packages,
                          const std::function<QString(const QString &origin)> &alias,
                          QWidget *parent);

    /** The chosen packages. */
    QVector<UpgradablePackage> packages() const;
    /** Whether the user has confirmed with the button for the preview. */
    bool wantsPreview() const { return m_wantsPreview; }

private:
    QVector<UpgradablePackage> m_packages;
    bool m_wantsPreview = false;
};
