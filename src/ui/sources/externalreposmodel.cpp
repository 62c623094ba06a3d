// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sources/externalreposmodel.h"

#include "core/countof.h"

#include <QFont>

#include <algorithm>

ExternalReposModel::ExternalReposModel(const ExternalRepos &repos, QObject *parent)
    : QAbstractTableModel(parent)
    , m_repos(repos)
    , m_rows(repos.entries())
{ }

// --- the list ----------------------------------------------------------------------------------------------------

void ExternalReposModel::merge(const QStringList &knownSources)
{
    m_repos.merge(knownSources);
    m_aptAnswered = true;
    const QVector<ExternalRepos::Entry> &merged = m_repos.entries();
    // Changed row by row, because a reset would close an open editor and lose the selection.
    for (int row = 0; row < merged.size(); ++row) {
        const ExternalRepos::Entry &entry = merged.at(row);
        const auto found
            = std::find_if(m_rows.cbegin() + row, m_rows.cend(), [&entry](const ExternalRepos::Entry &shown) {
                  return shown.source == entry.source;
              });
        const int from = static_cast<int>(found - m_rows.cbegin());
        if (found == m_rows.cend()) {
            beginInsertRows({}, row, row);
            m_rows.insert(row, entry);
            endInsertRows();
        } else if (from != row) {
            beginMoveRows({}, from, from, {}, row);
            m_rows.move(from, row);
            endMoveRows();
        }
    }
    if (m_rows.size() > merged.size()) {
        beginRemoveRows({}, countOf(merged), countOf(m_rows) - 1);
        m_rows.resize(merged.size());
        endRemoveRows();
    }
    m_rows = merged;
    if (!m_rows.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(countOf(m_rows) - 1, ColumnCount - 1));
}

int ExternalReposModel::setSource(const QString &source, int row)
{
    if (!m_repos.setSource(source, row))
        return -1;
    if (row < 0) {
        row = countOf(m_rows);
        beginInsertRows({}, row, row);
        m_rows = m_repos.entries();
        endInsertRows();
    } else {
        m_rows = m_repos.entries();
        Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
    }
    return row;
}

bool ExternalReposModel::isOwn(int row) const
{
    return row >= 0 && row < m_rows.size() && !m_rows.at(row).known;
}

bool ExternalReposModel::removeOwn(int row)
{
    if (!isOwn(row))
        return false;
    beginRemoveRows({}, row, row);
    m_repos.remove(row);
    m_rows = m_repos.entries();
    endRemoveRows();
    return true;
}

// --- what the views ask ------------------------------------------------------------------------------------------

int ExternalReposModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_rows);
}

int ExternalReposModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ExternalReposModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == SourceColumn ? tr("Repository") : tr("Alias");
}

QVariant ExternalReposModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ExternalRepos::Entry &entry = m_rows.at(index.row());
    const bool isSource = index.column() == SourceColumn;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return isSource ? entry.source : entry.alias;
    case Qt::CheckStateRole:
        return isSource ? QVariant(entry.enabled ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::ToolTipRole:
        return toolTip(entry);
    case Qt::FontRole: {
        QFont font;
        font.setItalic(m_aptAnswered && !entry.known && !entry.added);
        return font.italic() ? QVariant(font) : QVariant();
    }
    default:
        return {};
    }
}

QString ExternalReposModel::toolTip(const ExternalRepos::Entry &entry) const
{
    QString about;
    if (entry.known)
        about
            = tr("apt knows this repository from the sources of the system. Here it can be switched off and "
                 "named, but not changed or removed.");
    else if (entry.added)
        about = tr("You added this repository.");
    else if (m_aptAnswered && entry.enabled)
        about = tr("apt does not know this repository at present. It is asked again when apt knows it.");
    else if (m_aptAnswered)
        about = tr("apt does not know this repository at present.");
    // Qt breaks long lines only in rich text.
    return QStringLiteral("<p>%1</p><p>%2</p>").arg(entry.source.toHtmlEscaped(), about);
}

bool ExternalReposModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    if (role == Qt::CheckStateRole && index.column() == SourceColumn)
        m_repos.setEnabled(index.row(), value.toInt() == Qt::Checked);
    else if (role == Qt::EditRole && index.column() == AliasColumn)
        m_repos.setAlias(index.row(), value.toString());
    else
        return false;
    m_rows = m_repos.entries();
    Q_EMIT dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(ColumnCount - 1));
    return true;
}

Qt::ItemFlags ExternalReposModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return common | (index.column() == SourceColumn ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}
