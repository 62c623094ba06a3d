// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/previewmodel.h"

#include "core/countof.h"
#include "ui/widgets/tooltiptext.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QPalette>

#include <algorithm>
#include <array>

namespace
{
using Rule = PackageReplacementRules::Rule;

constexpr std::array<PreviewRow::Relation, 4> Relations
    = {PreviewRow::Newer, PreviewRow::Older, PreviewRow::SameFile, PreviewRow::SameVersion};

/** Whether the rule replaces the present package in a collision of this relation. */
bool replaces(Rule rule, PreviewRow::Relation relation)
{
    const RepoEnums::ErrorCode collision
        = relation == PreviewRow::Newer   ? RepoEnums::PACKAGE_EXISTS_OLD_VERSION
          : relation == PreviewRow::Older ? RepoEnums::PACKAGE_EXISTS_NEW_VERSION
                                          : RepoEnums::PACKAGE_EXISTS;
    return PackageReplacementRules{rule}.replaces(collision);
}

QVariant iconOf(const PreviewRow &row)
{
    static const QIcon refused = QIcon::fromTheme(QStringLiteral("dialog-error"));
    static const QIcon warning = QIcon::fromTheme(QStringLiteral("dialog-warning"));
    if (row.verdict == PreviewRow::Refused)
        return refused;
    if (row.isOn && row.relation == PreviewRow::Older)
        return warning;
    return {};
}

bool isSamePreview(const ChangePreview &a, const ChangePreview &b)
{
    return a.kind == b.kind && a.stamp == b.stamp && a.rows.size() == b.rows.size() && !b.rows.isEmpty();
}
} // namespace

PreviewModel::PreviewModel(QObject *parent)
    : QAbstractTableModel(parent)
{ }

void PreviewModel::setPreview(const ChangePreview &preview)
{
    // The user's place in the list stays when the effect becomes known.
    const bool isSame = isSamePreview(m_preview, preview);
    if (!isSame)
        beginResetModel();
    m_preview = preview;
    m_hasCollisions = std::any_of(preview.rows.cbegin(), preview.rows.cend(), [](const PreviewRow &row) {
        return row.verdict == PreviewRow::Collision && row.isSwitchable;
    });
    m_hasComparable = std::any_of(preview.rows.cbegin(), preview.rows.cend(), isComparable);
    if (!isSame)
        endResetModel();
    else
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void PreviewModel::setOn(const QVector<int> &rows, bool on)
{
    m_preview.setOn(rows, on);
    showSwitched();
}

void PreviewModel::setOnForAll(PreviewRow::Relation relation, bool on)
{
    m_preview.setOnForAll(relation, on);
    showSwitched();
}

void PreviewModel::decide(PackageReplacementRules::Rule rule)
{
    for (const PreviewRow::Relation relation : Relations)
        m_preview.setOnForAll(relation, replaces(rule, relation));
    showSwitched();
}

std::optional<PackageReplacementRules::Rule> PreviewModel::rule() const
{
    // A rule that is more careful wins where several would decide the same.
    for (const Rule rule : {PackageReplacementRules::ReplaceNone,
                            PackageReplacementRules::PreferHigher,
                            PackageReplacementRules::PreferLower,
                            PackageReplacementRules::ReplaceAll}) {
        const bool fits
            = std::all_of(m_preview.rows.cbegin(), m_preview.rows.cend(), [rule](const PreviewRow &row) {
                  return row.verdict != PreviewRow::Collision || row.isOn == replaces(rule, row.relation);
              });
        if (fits)
            return rule;
    }
    return std::nullopt;
}

void PreviewModel::showSwitched()
{
    if (!m_preview.rows.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    Q_EMIT switched();
}

QString PreviewModel::kindText(PreviewRow::Relation relation)
{
    switch (relation) {
    case PreviewRow::Newer:
        return tr("Newer version");
    case PreviewRow::Older:
        return tr("Older version");
    case PreviewRow::SameVersion:
        return tr("Same version, other content");
    case PreviewRow::SameFile:
        return tr("Same file");
    case PreviewRow::Alone:
        break;
    }
    return {};
}

qint64 PreviewModel::size(const PreviewRow &row)
{
    return row.change.kind == PackageChange::Removed ? row.change.before.size : row.change.after.size;
}

QString PreviewModel::longestChoice()
{
    PreviewRow row;
    row.verdict = PreviewRow::Collision;
    row.relation = PreviewRow::SameVersion;
    row.isOn = false;
    return happens(row);
}

bool PreviewModel::isComparable(const PreviewRow &row)
{
    return !row.change.before.file.isEmpty() && !row.source.isEmpty() && row.relation != PreviewRow::SameFile;
}

QString PreviewModel::happens(const PreviewRow &row)
{
    if (row.verdict == PreviewRow::Refused)
        return tr("Refused: %1").arg(row.refusal);
    if (row.verdict == PreviewRow::Collision)
        return (row.isOn ? tr("%1: replace") : tr("%1: do not replace")).arg(kindText(row.relation));
    switch (row.change.kind) {
    case PackageChange::Added:
        return row.isOn ? tr("Is added") : tr("Is not added");
    case PackageChange::Removed:
        return row.isOn ? tr("Is removed") : tr("Stays");
    case PackageChange::Replaced:
        break;
    }
    if (!row.isOn)
        return tr("Stays");
    const QString kind = kindText(row.relation);
    return kind.isEmpty() ? tr("Is replaced") : tr("Is replaced: %1").arg(kind);
}

QString PreviewModel::usualFate(const PreviewRow &row) const
{
    constexpr int RelationCount = PreviewRow::SameVersion + 1;
    constexpr int KindCount = PackageChange::Removed + 1;
    const int key = ((row.verdict * KindCount + row.change.kind) * RelationCount + row.relation) * 2
                    + (row.isOn ? 1 : 0);
    QString &fate = m_fates[key];
    if (fate.isEmpty())
        fate = happens(row);
    return fate;
}

QString PreviewModel::origin(const PreviewRow &row) const
{
    if (!row.source.isEmpty())
        return QFileInfo(row.change.origin.isEmpty() ? row.source : row.change.origin).fileName();
    return m_aliases && !row.change.origin.isEmpty() ? m_aliases(row.change.origin) : row.change.origin;
}

QString PreviewModel::text(const PreviewRow &row, int column) const
{
    const PackageChange &change = row.change;
    switch (column) {
    case Package:
        return change.name;
    case Architecture: {
        const PackageInfoPtr &package = row.offered.isNull() ? row.present : row.offered;
        const QString own = package.isNull() ? QString() : package->ownArchitecture();
        return own.isEmpty() || own == change.architecture ? change.architecture
                                                           : tr("%1 (%2)").arg(change.architecture, own);
    }
    case Happens:
        if (row.verdict == PreviewRow::Refused)
            return happens(row);
        return row.note.isEmpty() ? usualFate(row) : tr("%1 (%2)").arg(usualFate(row), row.note);
    case OldVersion:
        return change.before.version;
    case NewVersion:
        return change.after.version;
    case Size:
        return size(row) > 0 ? QLocale().formattedDataSize(size(row)) : QString();
    case From:
        return origin(row);
    default:
        return {};
    }
}

QString PreviewModel::toolTip(const PreviewRow &row, int column) const
{
    QStringList lines{text(row, column)};
    if (column == Package)
        lines << tr("Component: %1").arg(row.change.component);
    if (column == From)
        lines = QStringList{row.change.origin.isEmpty() ? row.source : row.change.origin};
    if (column == Happens && row.group >= 0 && row.verdict != PreviewRow::Refused)
        lines << tr("It is one file for several rows, which are switched together.");
    return toolTipText(lines.join(QLatin1Char('\n')));
}

int PreviewModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_preview.rows);
}

int PreviewModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Package:
        return tr("Package");
    case Architecture:
        return tr("Architecture");
    case Happens:
        return tr("What happens");
    case OldVersion:
        return tr("Old version");
    case NewVersion:
        return tr("New version");
    case Size:
        return tr("Size");
    case From:
        return tr("From");
    default:
        return {};
    }
}

QVariant PreviewModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const PreviewRow &row = m_preview.rows.at(index.row());
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return text(row, column);
    case Qt::ToolTipRole:
        return toolTip(row, column);
    case Qt::CheckStateRole:
        // What cannot be switched has no box.
        if (column == Package && row.isSwitchable && row.verdict != PreviewRow::Refused)
            return row.isOn ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::DecorationRole:
        return column == Happens ? iconOf(row) : QVariant();
    case Qt::ForegroundRole:
        if (!row.isOn && row.verdict == PreviewRow::Change)
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        return {};
    case Qt::TextAlignmentRole:
        if (column == Size)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    case ChoiceRole:
        return row.verdict == PreviewRow::Collision && row.isSwitchable;
    case OptionsRole: {
        PreviewRow other = row;
        other.isOn = true;
        const QString replace = happens(other);
        other.isOn = false;
        return QStringList{replace, happens(other)};
    }
    default:
        return {};
    }
}

bool PreviewModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || !(flags(index) & Qt::ItemIsUserCheckable || role == ChoiceRole))
        return false;
    if (role == Qt::CheckStateRole)
        setOn({index.row()}, value.toInt() == Qt::Checked);
    else if (role == ChoiceRole)
        setOn({index.row()}, value.toBool());
    else
        return false;
    return true;
}

Qt::ItemFlags PreviewModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return QAbstractTableModel::flags(index);
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    const PreviewRow &row = m_preview.rows.at(index.row());
    const bool isSwitchable = row.isSwitchable && row.verdict != PreviewRow::Refused;
    if (index.column() == Package && isSwitchable)
        flags |= Qt::ItemIsUserCheckable;
    if (index.column() == Happens && isSwitchable && row.verdict == PreviewRow::Collision)
        flags |= Qt::ItemIsEditable;
    return flags;
}
