// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class GpgKeysWidget;
class Prompts;
class QCheckBox;

/** The general parameters of the program. */
class ParametersDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ParametersDialog(Prompts &prompts, QWidget *parent = nullptr);

    void setShowPackageVersion(bool show);
    bool showPackageVersion() const;
    /** The key that packages are signed with; what was set stays unless the user chooses another. */
    void setSignKeyId(const QString &keyId);
    QString signKeyId() const;
    /** Hides the choice of the key, where packages are not signed. */
    void setSigningVisible(bool visible);
    /** Reads the keys to choose from; they are offered when they are known. */
    void readKeys();

private:
    QCheckBox *m_showPkgVersionCheckBox;
    GpgKeysWidget *m_gpgKeysWidget;
};
