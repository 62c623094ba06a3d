// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>

class QStandardItem;
class QStandardItemModel;

/**
 * A combo box whose items have check boxes. Its text consists of the checked items, separated by single blanks. The
 * pop-up stays open while the user toggles items with the mouse or the space bar, and closes with Enter or Escape.
 */
class CheckComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit CheckComboBox(QWidget *parent = nullptr);

    /** Replaces the items; the text does not change. */
    void setChoices(const QStringList &choices);
    QStringList checkedItems() const;
    /** Whether the user can change the text only by checking items. */
    void setTextReadOnly(bool readOnly);

    void showPopup() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void addChoice(const QString &text);
    void toggle(const QModelIndex &index);

    QStandardItemModel *m_items;
};
