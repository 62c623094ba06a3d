// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/repoitem.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVariant>
#include <QVector>

/** The columns of the package tree: what they are called and show, and how packages are sorted by them. */
class PackageColumns
{
    Q_DECLARE_TR_FUNCTIONS(PackageColumns)
public:
    enum Column : quint8 { Name, Version, Architecture, Size, Status, Signature, Added };
    using Columns = QVector<Column>;

    /** All columns in their order. */
    static Columns all();
    static QString title(Column column);
    /** What stands for the column in the settings. */
    static QString key(Column column);
    /** The text of a package in a column after the first; empty for a container. */
    static QString text(Column column, const RepoItem &item);
    /** What a model answers for a cell after the first column, and for the header. */
    static QVariant data(Column column, const RepoItem &item, int role);
    static QVariant headerData(Column column, int role);

    /** What a package is sorted by. Reading it once is faster than at each comparison. */
    struct SortKey
    {
        qint64 number = 0;
        QByteArray text;
    };
    static SortKey sortKey(Column column, const RepoItem &item);
    /** Whether the package with the key `left` comes before the other one. */
    static bool isLess(Column column, const SortKey &left, const SortKey &right);
};
