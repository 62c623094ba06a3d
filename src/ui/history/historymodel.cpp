// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/history/historymodel.h"

#include "core/countof.h"
#include "ui/widgets/tooltiptext.h"

#include <QIcon>

#include <algorithm>
#include <utility>

HistoryModel::HistoryModel(QObject *parent)
    : QAbstractItemModel(parent)
{ }

void HistoryModel::setPoints(const QVector<RestorePoint> &points)
{
    beginResetModel();
    m_points = points;
    show();
    endResetModel();
}

bool HistoryModel::hasPoints(const QVector<RestorePoint> &points) const
{
    return std::equal(m_points.cbegin(),
                      m_points.cend(),
                      points.cbegin(),
                      points.cend(),
                      [](const RestorePoint &one, const RestorePoint &other) {
                          return one.number == other.number && one.size == other.size
                                 && one.isReadable == other.isReadable && one.isKept == other.isKept
                                 && one.time == other.time;
                      });
}

void HistoryModel::setFilter(const QString &name)
{
    // Names of packages have no capital letters.
    const QString filter = name.trimmed().toLower();
    if (filter == m_filter)
        return;
    beginResetModel();
    m_filter = filter;
    show();
    endResetModel();
}

void HistoryModel::show()
{
    m_shown.clear();
    for (int place = 0; place < m_points.size(); ++place) {
        const QVector<PackageChange> &changes = std::as_const(m_points)[place].changes;
        Shown shown;
        shown.point = place;
        for (int row = 0; row < changes.size(); ++row) {
            const PackageChange &change = changes.at(row);
            if (isFiltered() && !change.name.contains(m_filter))
                continue;
            shown.counts.add(change.kind);
            if (isFiltered())
                shown.rows.append(row);
        }
        if (!isFiltered() || !shown.rows.isEmpty())
            m_shown.append(shown);
    }
}

const RestorePoint *HistoryModel::pointAt(const QModelIndex &index) const
{
    if (!index.isValid())
        return nullptr;
    const int row = index.internalId() == 0 ? index.row() : int(index.internalId()) - 1;
    return &m_points.at(m_shown.at(row).point);
}

const PackageChange *HistoryModel::changeAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0)
        return nullptr;
    const Shown &shown = m_shown.at(int(index.internalId()) - 1);
    const int row = isFiltered() ? shown.rows.at(index.row()) : index.row();
    return &m_points.at(shown.point).changes.at(row);
}

QModelIndex HistoryModel::indexOf(int number) const
{
    for (int row = 0; row < m_shown.size(); ++row) {
        if (m_points.at(m_shown.at(row).point).number == number)
            return index(row, 0);
    }
    return {};
}

QModelIndex HistoryModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    // A point has the number 0; a change has the row of its point, counted from 1.
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) + 1 : quintptr(0));
}

QModelIndex HistoryModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0)
        return {};
    return createIndex(int(index.internalId()) - 1, 0, quintptr(0));
}

int HistoryModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return countOf(m_shown);
    if (parent.internalId() != 0 || parent.column() != 0)
        return 0;
    const Shown &shown = m_shown.at(parent.row());
    return isFiltered() ? countOf(shown.rows) : countOf(m_points.at(shown.point).changes);
}

int HistoryModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return ColumnCount;
}

QString HistoryModel::pointText(const Shown &shown, int column) const
{
    const RestorePoint &point = m_points.at(shown.point);
    switch (column) {
    case NameColumn:
        return HistoryText::time(point);
    case ChangeColumn:
        return HistoryText::change(point, shown.counts);
    case OriginColumn:
        return point.user;
    case StateColumn:
        return HistoryText::state(point);
    default:
        return {};
    }
}

QString HistoryModel::changeText(const PackageChange &change, int column)
{
    switch (column) {
    case NameColumn:
        return change.name;
    case ChangeColumn:
        return HistoryText::kind(change.kind);
    case ArchitectureColumn:
        return change.architecture;
    case OldVersionColumn:
        return change.before.version;
    case NewVersionColumn:
        return change.after.version;
    case OriginColumn:
        return change.origin;
    default:
        return {};
    }
}

QVariant HistoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const PackageChange *change = changeAt(index);
    if (role == Qt::DecorationRole && change == nullptr && index.column() == NameColumn) {
        switch (pointAt(index)->kind) {
        case RestorePoint::Job:
            return QIcon::fromTheme(QStringLiteral("document-save"));
        case RestorePoint::Return:
            return QIcon::fromTheme(QStringLiteral("edit-undo"));
        case RestorePoint::Outside:
            return QIcon::fromTheme(QStringLiteral("dialog-information"));
        }
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const QString text = change == nullptr ? pointText(m_shown.at(index.row()), index.column())
                                           : changeText(*change, index.column());
    return role == Qt::ToolTipRole && !text.isEmpty() ? toolTipText(text) : text;
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case NameColumn:
        return tr("Time, package");
    case ChangeColumn:
        return tr("Change");
    case ArchitectureColumn:
        return tr("Architecture");
    case OldVersionColumn:
        return tr("Old version");
    case NewVersionColumn:
        return tr("New version");
    case OriginColumn:
        return tr("User, origin");
    case StateColumn:
        return tr("State before");
    default:
        return {};
    }
}
