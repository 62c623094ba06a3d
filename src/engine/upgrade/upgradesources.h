// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/upgrade/upgraderules.h"

#include <QMutex>
#include <QStringList>
#include <QVector>

#include <memory>

class PrivateApt;

/** The sources from which the repository is upgraded, and the packages that were found in them. Thread-safe. */
class UpgradeSources
{
public:
    /** Sets the sources, and forgets the packages of the previous ones. */
    void choose(const QStringList &sources);
    QVector<UpgradablePackage> found() const;
    void setFound(const QVector<UpgradablePackage> &packages);
    /** An apt that knows only these sources. Making it runs a program; null when it cannot be made. */
    std::shared_ptr<PrivateApt> apt(const QStringList &architectures);
    /** Deletes its files as soon as no job uses them. */
    void dropApt();

private:
    mutable QMutex m_mutex;
    QStringList m_sources;
    QVector<UpgradablePackage> m_found;
    std::shared_ptr<PrivateApt> m_apt; ///< null when its files are gone
};
