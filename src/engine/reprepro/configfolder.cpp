// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/configfolder.h"

#include "files/regularfile.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

ConfigFolder::ConfigFolder(QString path)
    : m_path(std::move(path))
{ }

QString ConfigFolder::options() const
{
    RegularFile file(m_path + QLatin1String("/options"));
    if (!file.exists())
        return QStringLiteral("");
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()) + QLatin1Char('\n')
                                          : QString();
}

std::optional<QByteArray> ConfigFolder::description() const
{
    RegularFile file(m_path + QLatin1String("/distributions"));
    return file.open(QIODevice::ReadOnly) ? std::make_optional(file.readAll()) : std::nullopt;
}

QString ConfigFolder::optionName(const QString &line)
{
    static const QRegularExpression separator(QStringLiteral("[\\s=]"));
    QString name = line.trimmed().section(separator, 0, 0);
    while (name.startsWith(QLatin1Char('-')))
        name.remove(0, 1);
    return name;
}

bool ConfigFolder::keepsUnreferencedFiles() const
{
    const QStringList lines = optionLines();
    return std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
        return optionName(line) == QLatin1String("keepunreferencedfiles");
    });
}

bool ConfigFolder::exportsNever() const
{
    const QStringList lines = optionLines();
    return std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
        return optionName(line) == QLatin1String("export") && line.contains(QLatin1String("never"));
    });
}

bool ConfigFolder::signs() const
{
    return hasField(QStringLiteral("SignWith"));
}

bool ConfigFolder::runsPrograms() const
{
    const QStringList lines = optionLines();
    return hasField(QStringLiteral("Log"))
           || std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
                  return optionName(line).endsWith(QLatin1String("hook"));
              });
}

bool ConfigFolder::runsProgramsForIndices() const
{
    return runsPrograms() || hasField(QStringLiteral("DebIndices")) || hasField(QStringLiteral("UDebIndices"))
           || hasField(QStringLiteral("DscIndices"));
}

QStringList ConfigFolder::optionLines() const
{
    return options().split(QLatin1Char('\n'));
}

bool ConfigFolder::hasField(const QString &field) const
{
    const auto text = description();
    if (!text)
        return true;
    const QStringList lines = QString::fromUtf8(*text).split(QLatin1Char('\n'));
    // reprepro does not mind the case of a name, nor where the value begins, and reads further files.
    return std::any_of(lines.cbegin(), lines.cend(), [&field](const QString &line) {
        return line.startsWith(QLatin1Char('!'))
               || line.section(QLatin1Char(':'), 0, 0).trimmed().compare(field, Qt::CaseInsensitive) == 0;
    });
}
