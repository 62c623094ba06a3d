// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/widgets/userchoices.h"

#include <QDialog>

#include <memory>

class Prompts;

namespace Ui
{
class AddPkgSettingsDialog;
}

/** Asks how packages are added: the component, signing, the dependency check, and whether to ask each time. */
class AddPkgSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    /** `components` are the components of the target repository. */
    AddPkgSettingsDialog(const QStringList &components,
                         const UserChoices &choices,
                         Prompts &prompts,
                         QWidget *parent = nullptr);
    ~AddPkgSettingsDialog() override;

    void setSigningVisible(bool visible);
    /** Hide it for a job that never checks dependencies. */
    void setDependsCheckVisible(bool visible);
    /** Offers a preview of what would be added with these settings. */
    void offerPreview();

    /** The initial choices with the user's changes. */
    UserChoices choices() const;
    /** Whether the user has confirmed with the button for the preview. */
    bool wantsPreview() const { return m_wantsPreview; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<Ui::AddPkgSettingsDialog> m_ui;
    UserChoices m_choices;
    int m_componentAtFirst = 0; ///< row of the initial component
    bool m_wantsPreview = false;
};
