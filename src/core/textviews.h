// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <QVector>

/** The parts of a text without copies of them. They are valid as long as the text is. */
inline QVector<QStringView>
splitView(QStringView text, QChar separator, Qt::SplitBehavior behavior = Qt::KeepEmptyParts)
{
    QVector<QStringView> parts;
    const auto append = [&](QStringView part) {
        if (behavior == Qt::KeepEmptyParts || !part.isEmpty())
            parts.append(part);
    };
    for (auto end = text.indexOf(separator); end >= 0; end = text.indexOf(separator)) {
        append(text.left(end));
        text = text.mid(end + 1);
    }
    append(text);
    return parts;
}
