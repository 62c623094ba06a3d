// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSortFilterProxyModel>

class PreviewModel;

/** Sorts the rows of a preview, versions as dpkg does, and shows those whose name or fate holds a text. */
class PreviewFilter : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    PreviewFilter(PreviewModel *model, QObject *parent);

    void setText(const QString &text);

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    const PreviewModel &m_model;
    QString m_text;
};
