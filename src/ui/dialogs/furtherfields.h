// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QWidget>

class CheckComboBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QScrollArea;
class QSpinBox;
class QToolButton;
struct KeyListing;

/** The rarer fields of a description, folded away below a button. */
class FurtherFields : public QWidget
{
    Q_OBJECT
public:
    explicit FurtherFields(QWidget *parent = nullptr);

    /** Fills the fields, and unfolds them when one has not its default. */
    void setInfo(const RepoInfo &info);
    /** Sets these fields of the description. `info` tells whether it has a signature and lists of contents. */
    void apply(RepoInfo *info) const;
    /** Only a repository that is signed has a key. */
    void setSigned(bool isSigned);
    /** Only lists of contents that are made have forms. */
    void setContents(bool hasContents);
    void setOpen(bool isOpen);
    /** What the Tab key reaches, in order. */
    QWidgetList tabOrder() const;

Q_SIGNALS:
    /** The fields were folded or unfolded, so another height is needed. */
    void folded();

private:
    void addField(const QString &caption, QWidget *field, const char *name, const QString &toolTip);
    void showOpen(bool isOpen);
    void fillKeys(const KeyListing &listing);
    void selectKey();

    QToolButton *m_button;
    QScrollArea *m_area;
    QLineEdit *m_origin;
    QLineEdit *m_label;
    QLineEdit *m_description;
    QComboBox *m_key;
    CheckComboBox *m_contents;
    QSpinBox *m_validFor;
    QPlainTextEdit *m_otherFields;
    QString m_keyInUse; ///< as it stands in the description
    bool m_hasReadKeys = false;
};
