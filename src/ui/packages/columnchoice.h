// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/packagecolumns.h"

#include <QHash>
#include <QObject>

class QMenu;
class QWidget;

/** The user's choice of columns, with their widths: one for all trees, kept in the settings. */
class ColumnChoice : public QObject
{
    Q_OBJECT
public:
    /** `window` is the parent of the menu. */
    explicit ColumnChoice(QWidget *window);

    /** The menu "Columns" with an entry for each column that can be left out. */
    QMenu *menu() const { return m_menu; }
    PackageColumns::Columns columns() const;
    /** In pixels; 0 when the user has set none. */
    int width(PackageColumns::Column column) const { return m_widths.value(column); }
    void setWidth(PackageColumns::Column column, int width);

Q_SIGNALS:
    void changed();

private:
    QMenu *m_menu;
    QHash<int, int> m_widths; ///< by column

    void load();
    void save() const;
};
