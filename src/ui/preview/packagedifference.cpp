// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/packagedifference.h"

#include "engine/archive/debcontrol.h"
#include "engine/archive/debfiles.h"

#include <QLocale>
#include <QMap>
#include <QRegularExpression>

namespace
{
using Line = PackageDifference::Line;
using Part = PackageDifference::Part;
using Values = QMap<QString, QString>;

constexpr int Octal = 8;

/** The fields of a control paragraph, each with its further lines. */
Values fieldsOf(const QByteArray &control)
{
    Values fields;
    QString name;
    const QList<QByteArray> lines = control.split('\n');
    for (const QByteArray &line : lines) {
        const auto colon = line.indexOf(':');
        if (line.startsWith(' ') || line.startsWith('\t')) {
            if (!name.isEmpty())
                fields[name] += QLatin1Char('\n') + QString::fromUtf8(line.trimmed());
        } else if (colon > 0) {
            name = QString::fromUtf8(line.left(colon));
            fields[name] = QString::fromUtf8(line.mid(colon + 1).trimmed());
        }
    }
    return fields;
}

QString about(const DebFile &file)
{
    const QString mode = QString::number(file.mode.toInt(nullptr, Octal), Octal);
    switch (file.type) {
    case '0':
        return PackageDifference::tr("%1 bytes, mode %2, SHA-256 %3")
            .arg(QLocale().toString(file.size), mode, QString::fromLatin1(file.sha256));
    case '1':
    case '2':
        return PackageDifference::tr("link to %1").arg(QString::fromUtf8(file.target));
    case '5':
        return PackageDifference::tr("folder, mode %1").arg(mode);
    default:
        return PackageDifference::tr("special file, mode %1").arg(mode);
    }
}

Values namedFiles(const QVector<DebFile> &files)
{
    Values named;
    for (const DebFile &file : files)
        named.insert(QString::fromUtf8(file.path), about(file));
    return named;
}

void compare(Part part, const Values &before, const Values &after, QVector<Line> *lines)
{
    for (auto value = before.cbegin(); value != before.cend(); ++value)
        if (after.value(value.key()) != value.value() || !after.contains(value.key()))
            lines->append({part, value.key(), value.value(), after.value(value.key())});
    for (auto value = after.cbegin(); value != after.cend(); ++value)
        if (!before.contains(value.key()))
            lines->append({part, value.key(), QString(), value.value()});
}
} // namespace

PackageDifference
PackageDifference::between(const QString &before, const QString &after, const std::function<bool()> &stopped)
{
    PackageDifference difference;
    const DebFiles old = DebFiles::of(before, stopped);
    const DebFiles anew = DebFiles::of(after, stopped);
    for (const auto &[files, path] : {std::pair(&old, &before), std::pair(&anew, &after)}) {
        if (!files->isWhole && !files->isTooLarge) {
            difference.failure = tr("The file %1 cannot be read.").arg(*path);
            return difference;
        }
    }
    difference.isCut = old.isTooLarge || anew.isTooLarge;
    const auto oldControl = debControl(before, stopped);
    const auto newControl = debControl(after, stopped);
    compare(Field,
            fieldsOf(oldControl.value_or(QByteArray())),
            fieldsOf(newControl.value_or(QByteArray())),
            &difference.lines);
    const auto withoutFields = [&](Values files) {
        // Its fields are compared one by one.
        if (oldControl && newControl)
            files.remove(QStringLiteral("control"));
        return files;
    };
    compare(ControlFile,
            withoutFields(namedFiles(old.control)),
            withoutFields(namedFiles(anew.control)),
            &difference.lines);
    if (!difference.isCut)
        compare(File, namedFiles(old.files), namedFiles(anew.files), &difference.lines);
    return difference;
}

QString PackageDifference::nextVersion(const QString &version)
{
    static const QRegularExpression local(QStringLiteral("^(.*\\+local)(\\d{1,9})$"));
    const QRegularExpressionMatch match = local.match(version);
    if (match.hasMatch())
        return match.captured(1) + QString::number(match.captured(2).toLongLong() + 1);
    return version + QLatin1String("+local1");
}

QString PackageDifference::partText(Part part)
{
    switch (part) {
    case Field:
        return tr("Field");
    case ControlFile:
        return tr("Control file");
    case File:
        return tr("File");
    }
    return {};
}
