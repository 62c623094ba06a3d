// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QAbstractItemView;

/**
 * Makes a view ask for the context menu of its current item by the menu key and by Shift+F10. Qt itself would ask for
 * the menu in the middle of the view; here the item is scrolled into sight, and the menu comes to the item.
 */
class ItemMenuKeys : public QObject
{
    Q_OBJECT
public:
    /** Belongs to the view. */
    explicit ItemMenuKeys(QAbstractItemView *view);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractItemView *m_view;
};
