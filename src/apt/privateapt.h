// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptlists.h"
#include "apt/candidatesource.h"

#include <QDateTime>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QTemporaryFile>

#include <functional>
#include <optional>

/**
 * A private state of apt for some sources only: lists, cache and settings below the user's cache folder. Programs use
 * it through environment(). All objects for the same sources share the lists, also in later runs of the program. All
 * other files are deleted with the object. Every function reads or writes files, and some run apt: not for the
 * interface thread.
 */
class PrivateApt
{
public:
    /**
     * Each source has the form after "deb " in a sources list, with its options. apt lists packages of architecture
     * "all" under the first of the architectures.
     */
    PrivateApt(QStringList sources, const QStringList &architectures);
    PrivateApt(const PrivateApt &) = delete;
    PrivateApt &operator=(const PrivateApt &) = delete;

    /** False when the files could not be written. */
    bool isValid() const { return m_valid; }
    /** Variables to add to the environment of apt. */
    QStringList environment() const;

    /** The result of fetch(). */
    struct Outcome
    {
        bool usable = false; ///< there are lists, perhaps not of all sources
        QStringList problems; ///< texts for the user about sources that could not be read; one line each
        QString details; ///< the error output of apt
        QByteArray lists = {}; ///< names these lists: others have another name; empty when some are missing
    };
    /**
     * Fetches the lists, unless they were fetched within the last hour and no source on this computer has changed.
     * `progress` receives percentages. After a stop
     * it returns soon, with nothing usable and no problems.
     */
    Outcome fetch(const StopRequest &stopped, const std::function<void(int percent)> &progress);

    /**
     * The lists that are there, whoever has fetched them. Nothing, with apt's words in `problem`, when apt cannot be
     * asked, and nothing after a stop. Thread-safe: copies of AddedSources have one apt.
     */
    std::optional<QVector<AptList>> lists(const StopRequest &stopped, QString *problem = nullptr);

    /**
     * Whether it is time to fetch the lists for somebody who can do with those of yesterday, see AptFetch::isDue(), or
     * a source on this computer has changed since the last try.
     */
    bool isDue() const;
    /** Whether the lists were never fetched, and nobody has tried to. */
    bool isNew() const;
    /** Outcome::problems of the last try. */
    QStringList lastProblems() const;
    /** When the lists were fetched; invalid when some of them are missing. */
    QDateTime fetchedAt() const;
    /** Makes the next fetch() fetch the lists however new they are. */
    void expire() const;

    /** The folder below the user's cache folder for data that can be fetched or computed again. */
    static QString cacheFolder();

private:
    QStringList m_sources;
    QString m_folder;
    QTemporaryFile m_sourceList;
    QTemporaryFile m_config;
    bool m_valid = false;
    QMutex m_mutex;
    AptLists m_lists; ///< guarded by the mutex

    QString filePath(const QString &name) const { return m_folder + QLatin1Char('/') + name; }
    bool makeFolders() const;
    bool writeFiles(const QStringList &architectures);
    void removeOldStates() const;
};
