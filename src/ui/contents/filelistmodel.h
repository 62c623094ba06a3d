// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/debfiles.h"

#include <QAbstractTableModel>
#include <QVector>

/** The files of a package as a table, of which a search leaves some. */
class FileListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Path, Size, Mode, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setFiles(const QVector<DebFile> &files);
    /** Leaves the files whose path or target contains the text, ignoring case. */
    void search(const QString &text);
    int fileCount() const { return m_count; }
    /** The paths of these rows, each on its own line. */
    QString pathsOf(const QModelIndexList &rows) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QVector<DebFile> m_files;
    QVector<int> m_shown; ///< indices in m_files
    QString m_text;
    int m_count = 0; ///< of all files, without the root folder

    void fill();
    const DebFile &file(int row) const { return m_files.at(m_shown.at(row)); }
};
