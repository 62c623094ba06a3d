// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"
#include "ui/widgets/checktabledialog.h"

/**
 * Asks for the sources of an upgrade: the enabled external repositories. It shows the user's own sources at once, and
 * apt's sources after apt has answered.
 */
class UpgradeSourcesDialog : public CheckTableDialog
{
    Q_OBJECT
public:
    /** `chosen` are the sources that are checked at first. */
    UpgradeSourcesDialog(ExternalRepos repos, const QStringList &chosen, QWidget *parent);

    /** The chosen sources, in the form after "deb " in a sources list. */
    QStringList sources() const;

private:
    void showSources(const QStringList &chosen);
    void takeAnswer(const QStringList &known, const QString &failure);

    ExternalRepos m_repos;
    QStringList m_wanted; ///< sources to check, including sources that apt has not named yet
    QStringList m_shown; ///< source of each row
};
