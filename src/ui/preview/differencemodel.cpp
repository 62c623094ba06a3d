// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/differencemodel.h"

#include "core/countof.h"
#include "ui/widgets/tooltiptext.h"

void DifferenceModel::setLines(const QVector<PackageDifference::Line> &lines)
{
    beginResetModel();
    m_lines = lines;
    endResetModel();
}

QString DifferenceModel::textOf(const QModelIndexList &rows) const
{
    QStringList lines;
    for (const QModelIndex &index : rows) {
        QStringList texts;
        for (int column = 0; column < ColumnCount; ++column)
            texts << text(index.row(), column);
        lines << texts.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

int DifferenceModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_lines);
}

int DifferenceModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DifferenceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Part:
        return tr("Part");
    case Name:
        return tr("Name");
    case Before:
        return tr("Present file");
    case After:
        return tr("New file");
    default:
        return {};
    }
}

QString DifferenceModel::text(int row, int column) const
{
    const PackageDifference::Line &line = m_lines.at(row);
    switch (column) {
    case Part:
        return PackageDifference::partText(line.part);
    case Name:
        return line.name;
    case Before:
        return line.before.isEmpty() ? tr("(not there)") : line.before;
    case After:
        return line.after.isEmpty() ? tr("(not there)") : line.after;
    default:
        return {};
    }
}

QVariant DifferenceModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const QString whole = text(index.row(), index.column());
    // One line in the table; all of them in the tool tip.
    return role == Qt::ToolTipRole ? toolTipText(whole) : whole.section(QLatin1Char('\n'), 0, 0);
}
