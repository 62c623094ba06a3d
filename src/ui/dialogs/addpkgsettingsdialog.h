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

/** How packages are added: the component, signing, the dependency check and whether to ask each time. */
class AddPkgSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    /** `components` are those of the repository that packages would go to. */
    AddPkgSettingsDialog(const QStringList &components,
                         const UserChoices &choices,
                         Prompts &prompts,
                         QWidget *parent = nullptr);
    ~AddPkgSettingsDialog() override;

    void setSigningVisible(bool visible);
    /** For what is added without a check whatever is chosen. */
    void setDependsCheckVisible(bool visible);

    /** The choices it was made with, changed to what the dialog shows. */
    UserChoices choices() const;

private:
    std::unique_ptr<Ui::AddPkgSettingsDialog> m_ui;
    UserChoices m_choices;
    int m_componentAtFirst = 0; ///< row
};
