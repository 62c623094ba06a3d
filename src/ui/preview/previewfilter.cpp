// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/previewfilter.h"

#include "apt/versionorder.h"
#include "ui/preview/previewmodel.h"

PreviewFilter::PreviewFilter(PreviewModel *model, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_model(*model)
{
    // A row that is switched keeps its place.
    setDynamicSortFilter(false);
    setSourceModel(model);
}

void PreviewFilter::setText(const QString &text)
{
    m_text = text.trimmed();
    // A change of the filter alone would tell of each gap between the rows that stay.
    invalidate();
}

bool PreviewFilter::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const int column = left.column();
    const PreviewRow &a = m_model.row(left.row());
    const PreviewRow &b = m_model.row(right.row());
    switch (column) {
    case PreviewModel::Package:
        return a.change.name.compare(b.change.name, Qt::CaseInsensitive) < 0;
    case PreviewModel::Architecture:
        return a.change.architecture < b.change.architecture;
    case PreviewModel::OldVersion:
        return VersionOrder::compare(a.change.before.version, b.change.before.version) < 0;
    case PreviewModel::NewVersion:
        return VersionOrder::compare(a.change.after.version, b.change.after.version) < 0;
    case PreviewModel::Size:
        return PreviewModel::size(a) < PreviewModel::size(b);
    default:
        return m_model.text(a, column).compare(m_model.text(b, column), Qt::CaseInsensitive) < 0;
    }
}

bool PreviewFilter::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    const PreviewRow &shown = m_model.row(row);
    return m_text.isEmpty() || shown.change.name.contains(m_text, Qt::CaseInsensitive)
           || m_model.text(shown, PreviewModel::Happens).contains(m_text, Qt::CaseInsensitive);
}
