// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QStringList>
#include <QVector>

class QCheckBox;
class QComboBox;
class QPushButton;

/** Asks where packages are copied or moved to. With Enter they go to the repository that was taken last. */
class CopyDialog : public QDialog
{
    Q_OBJECT
public:
    /** A repository that packages can go to. */
    struct Target
    {
        QString path;
        QStringList components;
        bool isSource = false; ///< the one that the packages are in: they can only get another component
    };
    enum class Kind { Copy, Move };

    /** `about` names the packages. `current` is the target that is chosen at first. */
    CopyDialog(
        Kind kind, const QString &about, QVector<Target> targets, int current, QWidget *parent = nullptr);

    /** The index of the chosen target; -1: one that has still to be opened. */
    int target() const;
    /** Empty: each package keeps the component that it is in. */
    QString component() const;
    bool withDepends() const;
    /** Whether the dialog was confirmed with the button for the preview. */
    bool wantsPreview() const { return m_wantsPreview; }

private:
    QVector<Target> m_targets;
    QComboBox *m_target;
    QComboBox *m_component;
    QCheckBox *m_depends;
    bool m_wantsPreview = false;

    void showComponents();
};
