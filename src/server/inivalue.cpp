// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/inivalue.h"

#include "core/textviews.h"

namespace IniValue
{
QString find(const QString &text, const QString &section, const QString &key)
{
    QString value;
    bool isHere = section.isEmpty();
    for (const QStringView untrimmed : splitView(text, QLatin1Char('\n'))) {
        const QStringView line = untrimmed.trimmed();
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            isHere = line.mid(1, line.size() - 2) == section;
            continue;
        }
        const auto equals = line.indexOf(QLatin1Char('='));
        if (isHere && equals > 0 && line.left(equals).trimmed() == key)
            value = line.mid(equals + 1).trimmed().toString();
    }
    return value;
}

int lastNumber(const QString &value)
{
    return value.mid(value.lastIndexOf(QLatin1Char(' ')) + 1).trimmed().toInt();
}
} // namespace IniValue
