// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/windowstate.h"

#include "core/dependsinfo.h"
#include "ui/widgets/userchoices.h"

#include <QSettings>

namespace
{
const QString extendedLogKey = QStringLiteral("MainWindow/extendedLog");
const QString statusLineHiddenKey = QStringLiteral("MainWindow/statusLineHidden");
const QString splitterKey = QStringLiteral("MainWindow/splitter");
const QString hiddenStatesKey = QStringLiteral("MainWindow/dependsHiddenStates");
const QString dependsColumnsKey = QStringLiteral("MainWindow/dependsColumns");
const QString currentRepositoryKey = QStringLiteral("MainWindow/currentRepository");

constexpr int WidestScreen = 100000;

QList<int> sizesFrom(const QStringList &texts)
{
    constexpr int Sides = 2;
    QList<int> sizes;
    for (const QString &text : texts) {
        bool isNumber = false;
        const int size = text.toInt(&isNumber);
        if (!isNumber || size <= 0 || size > WidestScreen)
            return {};
        sizes.append(size);
    }
    return sizes.size() == Sides ? sizes : QList<int>();
}
/** A column is stored as a text of its width and its source. */
DependsArrangement dependsArrangementFrom(const QStringList &states, const QStringList &columns)
{
    constexpr int MaximumColumns = 100;
    constexpr int Narrowest = 8;
    DependsArrangement arrangement;
    for (const int state : {DependUndefined, DependError, DependSuccess}) {
        if (states.contains(QString::number(state)))
            arrangement.hiddenStates.insert(state);
    }
    for (const QString &column : columns.mid(0, MaximumColumns)) {
        const QString source = column.section(QLatin1Char(' '), 1);
        const int width = column.section(QLatin1Char(' '), 0, 0).toInt();
        if (!source.isEmpty() && width >= Narrowest && width <= WidestScreen)
            arrangement.columnWidths.insert(source, width);
    }
    return arrangement;
}
} // namespace

WindowState WindowState::load(const QSettings &settings)
{
    WindowState state;
    state.extendedLog = storedBool(settings, extendedLogKey, state.extendedLog);
    state.statusLineHidden = storedBool(settings, statusLineHiddenKey, state.statusLineHidden);
    state.splitterSizes = sizesFrom(settings.value(splitterKey).toStringList());
    state.depends = dependsArrangementFrom(settings.value(hiddenStatesKey).toStringList(),
                                           settings.value(dependsColumnsKey).toStringList());
    state.currentRepository = settings.value(currentRepositoryKey).toString();
    return state;
}

void WindowState::save(QSettings &settings) const
{
    QStringList sizes;
    for (const int size : splitterSizes)
        sizes << QString::number(size);
    settings.setValue(extendedLogKey, extendedLog);
    settings.setValue(statusLineHiddenKey, statusLineHidden);
    if (sizes.isEmpty())
        settings.remove(splitterKey);
    else
        settings.setValue(splitterKey, sizes);
    QStringList hidden;
    for (const int state : depends.hiddenStates)
        hidden << QString::number(state);
    QStringList columns;
    for (auto column = depends.columnWidths.cbegin(); column != depends.columnWidths.cend(); ++column)
        columns << QStringLiteral("%1 %2").arg(column.value()).arg(column.key());
    settings.setValue(hiddenStatesKey, hidden);
    settings.setValue(dependsColumnsKey, columns);
    settings.setValue(currentRepositoryKey, currentRepository);
}
