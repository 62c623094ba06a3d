// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/companionsizes.h"

#include <QTreeWidget>
#include <QVector>

/** What comes along when a package is installed on a bare system, with sizes. Each column can sort the rows. */
class CompanionsTree : public QTreeWidget
{
    Q_OBJECT
public:
    explicit CompanionsTree(QWidget *parent = nullptr);

    /** Packages that are not of the repository come from the base. */
    void showCompanions(const QVector<Companion> &companions, const CompleteCheckBase &base);
    /** One line: the number of packages, and the sums of their sizes. */
    static QString totals(const QVector<Companion> &companions);
};
