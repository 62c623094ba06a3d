// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QCheckBox;

/** The general parameters of the program. */
class ParametersDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ParametersDialog(QWidget *parent = nullptr);

    void setShowPackageVersion(bool show);
    bool showPackageVersion() const;

private:
    QCheckBox *m_showPkgVersionCheckBox;
};
