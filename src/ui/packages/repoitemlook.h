// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/repoitem.h"

#include <QCoreApplication>
#include <QFont>
#include <QIcon>
#include <QString>

/** How an item of the package tree looks: its icon with the signs of both checks, and the words for them. */
class RepoItemLook
{
    Q_DECLARE_TR_FUNCTIONS(RepoItemLook)
public:
    /** `isStale`: something has changed since the last complete check, whose sign is paler then. */
    static QIcon icon(const RepoItem &item, bool isStale);
    /** The font of the top item: bold and one point larger than the font of the tree. */
    static QFont topFont();
    /** What the complete check says, in sentences; empty when it says nothing. */
    static QString installability(const RepoItem &item, bool breaksOthers, bool isStale);
};
