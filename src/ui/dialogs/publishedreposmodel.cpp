// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/publishedreposmodel.h"

#include "core/countof.h"
#include "ui/dialogs/publicationtext.h"
#include "ui/widgets/tooltiptext.h"

#include <QIcon>

#include <algorithm>

namespace
{
/** Whether both are the same publication, regardless of its state. */
bool isSamePlace(const Publication &a, const Publication &b)
{
    return a.protocol == b.protocol && a.repo.port == b.repo.port && a.repo.path == b.repo.path;
}
} // namespace

PublishedReposModel::PublishedReposModel(QObject *parent)
    : QAbstractTableModel(parent)
{ }

void PublishedReposModel::setPublications(const QVector<Publication> &publications)
{
    const auto rowOf = [](const QVector<Publication> &rows, const Publication &wanted) {
        const auto found = std::find_if(rows.cbegin(), rows.cend(), [&wanted](const Publication &row) {
            return isSamePlace(row, wanted);
        });
        return found == rows.cend() ? -1 : static_cast<int>(found - rows.cbegin());
    };
    // Changed row by row, because a reset would lose the selection.
    for (int row = countOf(m_rows) - 1; row >= 0; --row) {
        if (rowOf(publications, m_rows.at(row)) >= 0)
            continue;
        beginRemoveRows({}, row, row);
        m_rows.remove(row);
        endRemoveRows();
    }
    for (const Publication &publication : publications) {
        const int row = rowOf(m_rows, publication);
        if (row < 0) {
            beginInsertRows({}, countOf(m_rows), countOf(m_rows));
            m_rows.append(publication);
            endInsertRows();
        } else if (!(m_rows.at(row) == publication)) {
            m_rows[row] = publication;
            Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
        }
    }
}

void PublishedReposModel::setHosts(const QString &usual, const QHash<int, QString> &ofPorts)
{
    m_host = usual;
    m_hostsOfPorts = ofPorts;
    if (!m_rows.isEmpty())
        Q_EMIT dataChanged(index(0, AddressColumn), index(countOf(m_rows) - 1, AddressColumn));
}

QString PublishedReposModel::address(int row) const
{
    const Publication &publication = m_rows.at(row);
    const int port = publication.repo.port;
    return PublicationText::address(publication.protocol, m_hostsOfPorts.value(port, m_host), port);
}

// --- what the views ask ------------------------------------------------------------------------------------------

int PublishedReposModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_rows);
}

int PublishedReposModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PublishedReposModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case RepositoryColumn:
        return tr("Repository");
    case TypeColumn:
        return tr("Type");
    case AddressColumn:
        return tr("Address");
    case PortColumn:
        return tr("Port");
    default:
        return tr("State");
    }
}

QString PublishedReposModel::text(int row, int column) const
{
    const Publication &publication = m_rows.at(row);
    switch (column) {
    case RepositoryColumn:
        return publication.repo.path;
    case TypeColumn:
        return publication.repo.type;
    case AddressColumn:
        return address(row);
    case PortColumn:
        return QString::number(publication.repo.port);
    default:
        return PublicationText::state(publication.state);
    }
}

QVariant PublishedReposModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Publication &publication = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column());
    case SortRole:
        return index.column() == PortColumn ? QVariant(publication.repo.port)
                                            : QVariant(text(index.row(), index.column()));
    case Qt::ToolTipRole:
        return toolTipText(text(index.row(), index.column()));
    case Qt::DecorationRole:
        if (index.column() == StateColumn && publication.state == QLatin1String("failed"))
            return QIcon::fromTheme(QStringLiteral("dialog-warning"));
        return {};
    default:
        return {};
    }
}
