// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/previewreport.h"

#include "core/packagenames.h"
#include "engine/preview/previewtext.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{
/** The text on one line: what comes from packages can hold anything. */
QString plain(const QString &text)
{
    QString line = text;
    for (QChar &c : line)
        if (c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line
            || c.category() == QChar::Separator_Paragraph || c.category() == QChar::Other_Format)
            c = QLatin1Char(' ');
    return line;
}

/** The word of a row's action, for programs. */
QString actionOf(const PreviewRow &row)
{
    if (row.verdict == PreviewRow::Refused)
        return QStringLiteral("refuse");
    switch (row.change.kind) {
    case PackageChange::Added:
        return QStringLiteral("add");
    case PackageChange::Replaced:
        return QStringLiteral("replace");
    case PackageChange::Removed:
        break;
    }
    return QStringLiteral("remove");
}

QString relationOf(PreviewRow::Relation relation)
{
    switch (relation) {
    case PreviewRow::Newer:
        return QStringLiteral("newer");
    case PreviewRow::Older:
        return QStringLiteral("older");
    case PreviewRow::SameFile:
        return QStringLiteral("same-file");
    case PreviewRow::SameVersion:
        return QStringLiteral("same-version");
    case PreviewRow::Alone:
        break;
    }
    return {};
}

QString kindOf(ChangePreview::Kind kind)
{
    switch (kind) {
    case ChangePreview::Add:
        return QStringLiteral("add");
    case ChangePreview::Remove:
        return QStringLiteral("remove");
    case ChangePreview::Fetch:
        return QStringLiteral("fetch");
    case ChangePreview::Import:
        return QStringLiteral("import");
    case ChangePreview::Upgrade:
        return QStringLiteral("upgrade");
    case ChangePreview::Describe:
        return QStringLiteral("change");
    case ChangePreview::Return:
        return QStringLiteral("restore");
    }
    return {};
}

QJsonValue stateOf(const PackageChange::State &state)
{
    if (state.version.isEmpty())
        return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("version"), state.version},
                       {QStringLiteral("filename"), state.file},
                       {QStringLiteral("sha256"), state.sha256},
                       {QStringLiteral("size"), static_cast<double>(state.size)}};
}

QJsonObject rowOf(const PreviewRow &row)
{
    return {{QStringLiteral("package"), row.change.name},
            {QStringLiteral("type"), PackageNames::suffix(row.change.type)},
            {QStringLiteral("component"), row.change.component},
            {QStringLiteral("architecture"), row.change.architecture},
            {QStringLiteral("action"), actionOf(row)},
            {QStringLiteral("selected"), row.takesPart()},
            {QStringLiteral("relation"), relationOf(row.relation)},
            {QStringLiteral("before"), stateOf(row.change.before)},
            {QStringLiteral("after"), stateOf(row.change.after)},
            {QStringLiteral("origin"), row.change.origin},
            {QStringLiteral("reason"), row.refusal},
            {QStringLiteral("note"), row.note}};
}

QJsonArray lossesOf(const QVector<PreviewLoss> &losses)
{
    QJsonArray array;
    for (const PreviewLoss &loss : losses)
        array.append(QJsonObject{{QStringLiteral("repository"), loss.repository},
                                 {QStringLiteral("package"), loss.package->name},
                                 {QStringLiteral("version"), loss.package->version},
                                 {QStringLiteral("architecture"), loss.package->architecture},
                                 {QStringLiteral("reasons"), QJsonArray::fromStringList(loss.reasons)}});
    return array;
}

QJsonObject effectOf(const PreviewEffect &effect)
{
    return {{QStringLiteral("known"), effect.isKnown},
            {QStringLiteral("base"), effect.base},
            {QStringLiteral("lost"), lossesOf(effect.lost)},
            {QStringLiteral("gained"), lossesOf(effect.gained)},
            {QStringLiteral("uninstallable"), lossesOf(effect.uninstallable)},
            {QStringLiteral("upgrades"), effect.upgrades},
            {QStringLiteral("downgrades"), effect.downgrades},
            {QStringLiteral("bytesComing"), static_cast<double>(effect.comes)},
            {QStringLiteral("bytesGoing"), static_cast<double>(effect.goes)},
            {QStringLiteral("bytesFree"),
             effect.free < 0 ? QJsonValue(QJsonValue::Null) : QJsonValue(static_cast<double>(effect.free))},
            {QStringLiteral("signature"), effect.signature},
            {QStringLiteral("description"), QJsonArray::fromStringList(effect.description)},
            {QStringLiteral("clients"), QJsonArray::fromStringList(effect.clients)}};
}

/** The lines of a part of the report, under its title; nothing when there are none. */
QString section(const QString &title, const QStringList &lines)
{
    if (lines.isEmpty())
        return {};
    QString text = QLatin1Char('\n') + title + QLatin1Char('\n');
    for (const QString &line : lines)
        text += QLatin1String("  ") + plain(line) + QLatin1Char('\n');
    return text;
}

QStringList linesOf(const QVector<PreviewLoss> &losses, const QString &repository)
{
    QStringList lines;
    for (const PreviewLoss &loss : losses) {
        QString line = PreviewText::package(*loss.package);
        if (loss.repository != repository)
            line += QStringLiteral(" – ") + loss.repository;
        lines << line;
        for (const QString &reason : loss.reasons)
            lines << QLatin1String("  ") + reason;
    }
    return lines;
}
} // namespace

QByteArray PreviewReport::text(const ChangePreview &preview)
{
    const PreviewEffect &effect = preview.effect;
    QString text = PreviewText::job(preview.kind) + QLatin1String(": ") + plain(preview.repository)
                   + QLatin1Char('\n') + PreviewText::counts(preview) + QLatin1Char('\n');
    QStringList rows;
    for (const PreviewRow &row : preview.rows)
        rows << PreviewText::line(row);
    text += section(tr("Packages"), rows);
    text += section(tr("Description"), effect.description);
    text += section(tr("Can no longer be installed"), linesOf(effect.lost, preview.repository));
    text += section(tr("Can be installed from then on"),
                    linesOf(PreviewText::gained(effect), preview.repository));
    text
        += section(tr("Come in, and cannot be installed"), linesOf(effect.uninstallable, preview.repository));
    text += section(tr("Clients"), PreviewText::clients(preview));
    text += section(tr("Disk"), {PreviewText::sizes(effect)});
    if (!effect.signature.isEmpty())
        text += section(tr("Signature"), {effect.signature});
    if (!effect.isKnown)
        text += QLatin1Char('\n') + tr("Which packages can be installed then has not been found out.")
                + QLatin1Char('\n');
    else if (!effect.base.isEmpty())
        text += QLatin1Char('\n')
                + tr("Whether packages can be installed was checked with: %1").arg(effect.base)
                + QLatin1Char('\n');
    return text.toUtf8();
}

QByteArray PreviewReport::json(const ChangePreview &preview)
{
    return QJsonDocument(object(preview)).toJson();
}

QJsonObject PreviewReport::object(const ChangePreview &preview)
{
    QJsonArray rows;
    for (const PreviewRow &row : preview.rows)
        rows.append(rowOf(row));
    return {{QStringLiteral("job"), kindOf(preview.kind)},
            {QStringLiteral("repository"), preview.repository},
            {QStringLiteral("breaks"), preview.breaksSomething()},
            {QStringLiteral("rows"), rows},
            {QStringLiteral("effect"), effectOf(preview.effect)}};
}
