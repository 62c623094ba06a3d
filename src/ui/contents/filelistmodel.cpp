// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/contents/filelistmodel.h"

#include "core/countof.h"
#include "ui/widgets/tooltiptext.h"

#include <QLocale>
#include <QStringList>

namespace
{
QString pathOf(const DebFile &file)
{
    return QLatin1Char('/') + QString::fromUtf8(file.path);
}

bool isLink(const DebFile &file)
{
    return file.type == '1' || file.type == '2';
}

/** As ls(1) shows it, such as "rwxr-xr-x"; the digits of an unusual mode. */
QString modeText(const DebFile &file)
{
    constexpr int Octal = 8;
    bool isNumber = false;
    const int mode = file.mode.toInt(&isNumber, Octal);
    if (!isNumber || mode < 0 || mode > 0777)
        return QString::fromLatin1(file.mode);
    constexpr const char *Letters = "rwxrwxrwx";
    QString text;
    for (int bit = 0; bit < 9; ++bit)
        text += QLatin1Char((mode & (0400 >> bit)) != 0 ? Letters[bit] : '-');
    return text;
}
} // namespace

void FileListModel::setFiles(const QVector<DebFile> &files)
{
    beginResetModel();
    m_files = files;
    fill();
    endResetModel();
}

void FileListModel::search(const QString &text)
{
    if (text == m_text)
        return;
    beginResetModel();
    m_text = text;
    fill();
    endResetModel();
}

void FileListModel::fill()
{
    m_shown.clear();
    m_count = 0;
    for (int i = 0; i < m_files.size(); ++i) {
        const DebFile &file = m_files.at(i);
        // The root folder is in every package.
        if (file.path.isEmpty() || file.path == "." || file.path == "/")
            continue;
        ++m_count;
        if (m_text.isEmpty() || pathOf(file).contains(m_text, Qt::CaseInsensitive)
            || (isLink(file) && QString::fromUtf8(file.target).contains(m_text, Qt::CaseInsensitive)))
            m_shown.append(i);
    }
}

QString FileListModel::pathsOf(const QModelIndexList &rows) const
{
    QStringList paths;
    for (const QModelIndex &index : rows)
        paths << pathOf(file(index.row()));
    return paths.join(QLatin1Char('\n'));
}

int FileListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_shown);
}

int FileListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Path:
        return tr("File");
    case Size:
        return tr("Size");
    case Mode:
        return tr("Permissions");
    default:
        return {};
    }
}

QVariant FileListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const DebFile &file = this->file(index.row());
    if (role == Qt::TextAlignmentRole && index.column() == Size)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (index.column()) {
    case Path: {
        QString text = pathOf(file);
        if (isLink(file))
            text += QStringLiteral(" \u2192 ") + QString::fromUtf8(file.target);
        return role == Qt::ToolTipRole ? toolTipText(text) : text;
    }
    case Size:
        if (file.type != '0')
            return {};
        return role == Qt::ToolTipRole ? tr("%1 bytes").arg(QLocale().toString(file.size))
                                       : QLocale().formattedDataSize(file.size, 1);
    case Mode:
        return role == Qt::ToolTipRole ? QString::fromLatin1(file.mode) : modeText(file);
    default:
        return {};
    }
}
