// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "installability/needindex.h"

#include <QVector>

/** Who needs a package. */
class ReverseNeeds
{
public:
    /** The universe outlives this object. */
    explicit ReverseNeeds(const Universe &universe);

    /** The checked packages with an entry that the package can meet, by rising index. */
    QVector<int> directUsers(int package) const;
    /**
     * The checked packages that can be installed now and could not be without the packages `gone`, by rising index.
     * Incomplete after a stop.
     */
    QVector<int> lostWithout(const QVector<int> &gone, const StopRequest &stopped = {}) const;
    /** The checked packages that need one of these, directly or over others, by rising index; without these. */
    QVector<int> possibleUsers(const QVector<int> &packages) const;

private:
    const Universe &m_universe;
    NeedIndex m_index;

    /** The checked packages but these. */
    QVector<int> checkedPackages(const QVector<int> &others) const;
};
