// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/windowstate.h"

#include "ui/userchoices.h"

#include <QSettings>

namespace
{
const QString extendedLogKey = QStringLiteral("MainWindow/extendedLog");
const QString statusLineHiddenKey = QStringLiteral("MainWindow/statusLineHidden");
const QString splitterKey = QStringLiteral("MainWindow/splitter");
const QString currentRepositoryKey = QStringLiteral("MainWindow/currentRepository");

QList<int> sizesFrom(const QStringList &texts)
{
    constexpr int Sides = 2;
    constexpr int WidestScreen = 100000;
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
} // namespace

WindowState WindowState::load(const QSettings &settings)
{
    WindowState state;
    state.extendedLog = storedBool(settings, extendedLogKey, state.extendedLog);
    state.statusLineHidden = storedBool(settings, statusLineHiddenKey, state.statusLineHidden);
    state.splitterSizes = sizesFrom(settings.value(splitterKey).toStringList());
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
    settings.setValue(currentRepositoryKey, currentRepository);
}
