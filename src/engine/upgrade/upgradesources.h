// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptoutput.h"
#include "engine/upgrade/upgraderules.h"

#include <QByteArray>
#include <QMutex>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

class PrivateApt;

/** The sources from which the repository is upgraded, and the packages that were found in them. Thread-safe. */
class UpgradeSources
{
public:
    /** Sets the sources, and forgets the packages of the previous ones. */
    void choose(const QStringList &sources);
    QVector<UpgradablePackage> found() const;
    void setFound(const QVector<UpgradablePackage> &packages);
    /**
     * What the sources were found to offer for these names, and maybe for others; nothing when they were not asked
     * about all of them in these lists, see PrivateApt::Outcome.
     */
    std::optional<QVector<AptPackageRecord>> offered(const QStringList &names, const QByteArray &lists) const;
    void
    setOffered(const QStringList &names, const QByteArray &lists, const QVector<AptPackageRecord> &records);
    /** An apt that knows only these sources. Making it runs a program; null when it cannot be made. */
    std::shared_ptr<PrivateApt> apt(const QStringList &architectures);
    /** Deletes its files as soon as no job uses them. */
    void dropApt();

private:
    mutable QMutex m_mutex;
    QStringList m_sources;
    QVector<UpgradablePackage> m_found;
    QByteArray m_lists; ///< that the records are from
    QSet<QString> m_names; ///< that the records are about
    QVector<AptPackageRecord> m_records;
    std::shared_ptr<PrivateApt> m_apt; ///< null when its files are gone
};
