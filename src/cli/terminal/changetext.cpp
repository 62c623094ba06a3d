// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/terminal/changetext.h"

#include <QCoreApplication>

namespace
{
QString wordOf(PackageChange::Kind kind)
{
    switch (kind) {
    case PackageChange::Added:
        return QStringLiteral("added");
    case PackageChange::Replaced:
        return QStringLiteral("replaced");
    case PackageChange::Removed:
        break;
    }
    return QStringLiteral("removed");
}

QString wordOf(RestorePoint::Kind kind)
{
    switch (kind) {
    case RestorePoint::Job:
        return QStringLiteral("job");
    case RestorePoint::Return:
        return QStringLiteral("return");
    case RestorePoint::Outside:
        break;
    }
    return QStringLiteral("outside");
}

QJsonValue stateOf(const PackageChange::State &state)
{
    if (state.isNone())
        return QJsonValue();
    return QJsonObject{{QStringLiteral("version"), state.version},
                       {QStringLiteral("filename"), state.file},
                       {QStringLiteral("sha256"), state.sha256},
                       {QStringLiteral("size"), state.size}};
}
} // namespace

QString shownChange(const PackageChange &change)
{
    const auto line = [&change](const QString &text, const QString &version) {
        return text.arg(
            QStringLiteral("%1 %2 %3 %4").arg(change.name, version, change.architecture, change.component));
    };
    QString text;
    switch (change.kind) {
    case PackageChange::Added:
        text = line(QCoreApplication::translate("cli", "Added: %1"), change.after.version);
        break;
    case PackageChange::Replaced:
        text = line(QCoreApplication::translate("cli", "Replaced: %1"),
                    change.before.version + QLatin1String(" -> ") + change.after.version);
        break;
    case PackageChange::Removed:
        return line(QCoreApplication::translate("cli", "Removed: %1"), change.before.version);
    }
    return change.origin.isEmpty()
               ? text
               : QCoreApplication::translate("cli", "%1, from %2").arg(text, change.origin);
}

QJsonArray ChangeJson::array(const QVector<PackageChange> &changes)
{
    QJsonArray array;
    for (const PackageChange &change : changes)
        array.append(
            QJsonObject{{QStringLiteral("change"), wordOf(change.kind)},
                        {QStringLiteral("package"), change.name},
                        {QStringLiteral("type"),
                         change.type == PackageType::Udeb ? QStringLiteral("udeb") : QStringLiteral("deb")},
                        {QStringLiteral("component"), change.component},
                        {QStringLiteral("architecture"), change.architecture},
                        {QStringLiteral("before"), stateOf(change.before)},
                        {QStringLiteral("after"), stateOf(change.after)},
                        {QStringLiteral("origin"), change.origin}});
    return array;
}

QJsonObject ChangeJson::object(const RestorePoint &point)
{
    return {{QStringLiteral("point"), point.number},
            {QStringLiteral("kind"), wordOf(point.kind)},
            {QStringLiteral("time"), point.time.toUTC().toString(Qt::ISODate)},
            {QStringLiteral("user"), point.user},
            {QStringLiteral("summary"), point.summary},
            {QStringLiteral("description"), point.changesDescription},
            {QStringLiteral("kept"), point.isKept},
            {QStringLiteral("reason"), point.reason},
            {QStringLiteral("size"), point.size},
            {QStringLiteral("changes"), array(point.changes)}};
}
