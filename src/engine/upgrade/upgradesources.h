// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/upgrade/upgraderules.h"

#include <QMutex>
#include <QStringList>
#include <QVector>

#include <memory>

class PrivateApt;

/** The sources that the repository is upgraded from, and what was found in them. All of it for any thread. */
class UpgradeSources
{
public:
    /** Forgets what was found elsewhere. */
    void choose(const QStringList &sources);
    QVector<UpgradablePackage> found() const;
    void setFound(const QVector<UpgradablePackage> &packages);
    /** The apt that knows only these sources; runs a program when it has to be made, null when it cannot be. */
    std::shared_ptr<PrivateApt> apt(const QStringList &architectures);
    /** Deletes its files as soon as no job uses them. */
    void dropApt();

private:
    mutable QMutex m_mutex;
    QStringList m_sources;
    QVector<UpgradablePackage> m_found;
    std::shared_ptr<PrivateApt> m_apt; ///< null when its files are gone
};
