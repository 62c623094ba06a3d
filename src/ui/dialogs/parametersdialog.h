// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class GpgKeysWidget;
class Prompts;
class QCheckBox;

/** The general settings of the program. */
class ParametersDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ParametersDialog(Prompts &prompts, QWidget *parent = nullptr);

    void setShowPackageVersion(bool show);
    bool showPackageVersion() const;
    /** The key for signing packages. It does not change unless the user chooses another one. */
    void setSignKeyId(const QString &keyId);
    QString signKeyId() const;
    /** Hides the choice of the key when packages are not signed. */
    void setSigningVisible(bool visible);
    /** Starts reading the keys; they are listed as soon as they are known. */
    void readKeys();

private:
    QCheckBox *m_showPkgVersionCheckBox;
    GpgKeysWidget *m_gpgKeysWidget;
};
