// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"
#include "ui/widgets/checktabledialog.h"

/**
 * Asks from which sources packages are upgraded, among the external repositories that are not switched off. It shows
 * the user's own at once, and what apt knows when apt has answered.
 */
class UpgradeSourcesDialog : public CheckTableDialog
{
    Q_OBJECT
public:
    /** `chosen`: what is checked at first. */
    UpgradeSourcesDialog(ExternalRepos repos, const QStringList &chosen, QWidget *parent);

    /** The chosen sources, each as it follows "deb " in a sources list. */
    QStringList sources() const;

private:
    void showSources(const QStringList &chosen);
    void takeAnswer(const QStringList &known, const QString &failure);

    ExternalRepos m_repos;
    QStringList m_wanted; ///< sources that are to be checked, also such as apt has not yet named
    QStringList m_shown; ///< source of each row
};
