// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/columnchoice.h"

#include "core/settingskeys.h"

#include <QAction>
#include <QMenu>
#include <QSettings>
#include <QStringList>

ColumnChoice::ColumnChoice(QWidget *window)
    : QObject(window)
    , m_menu(new QMenu(tr("Columns"), window))
{
    m_menu->setObjectName(QStringLiteral("m_columnsMenu"));
    for (const PackageColumns::Column column : PackageColumns::all()) {
        if (column == PackageColumns::Name)
            continue;
        QAction *action = m_menu->addAction(PackageColumns::title(column));
        action->setCheckable(true);
        action->setData(int(column));
    }
    load();
    connect(m_menu, &QMenu::triggered, this, [this] {
        save();
        Q_EMIT changed();
    });
}

PackageColumns::Columns ColumnChoice::columns() const
{
    PackageColumns::Columns columns{PackageColumns::Name};
    const QList<QAction *> actions = m_menu->actions();
    for (const QAction *action : actions) {
        if (action->isChecked())
            columns.append(static_cast<PackageColumns::Column>(action->data().toInt()));
    }
    return columns;
}

void ColumnChoice::setWidth(PackageColumns::Column column, int width)
{
    if (m_widths.value(column) == width)
        return;
    m_widths[column] = width;
    save();
}

void ColumnChoice::load()
{
    constexpr int Narrowest = 8;
    constexpr int Widest = 10000;
    const QSettings settings;
    const QStringList shown = settings.value(SettingsKey::PackageColumns).toStringList();
    const QStringList widths = settings.value(SettingsKey::PackageColumnWidths).toStringList();
    for (const PackageColumns::Column column : PackageColumns::all()) {
        const QString key = PackageColumns::key(column);
        for (const QString &width : widths) {
            const int pixels = width.section(QLatin1Char(' '), 1).toInt();
            if (width.section(QLatin1Char(' '), 0, 0) == key && pixels >= Narrowest && pixels <= Widest)
                m_widths.insert(column, pixels);
        }
        const QList<QAction *> actions = m_menu->actions();
        for (QAction *action : actions) {
            if (action->data().toInt() == column)
                action->setChecked(shown.contains(key));
        }
    }
}

void ColumnChoice::save() const
{
    QStringList shown;
    QStringList widths;
    const PackageColumns::Columns chosen = columns();
    for (const PackageColumns::Column column : PackageColumns::all()) {
        const QString key = PackageColumns::key(column);
        if (column != PackageColumns::Name && chosen.contains(column))
            shown << key;
        if (m_widths.contains(column))
            widths << QStringLiteral("%1 %2").arg(key).arg(m_widths.value(column));
    }
    QSettings settings;
    settings.setValue(SettingsKey::PackageColumns, shown);
    settings.setValue(SettingsKey::PackageColumnWidths, widths);
}
