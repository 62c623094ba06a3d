// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

#include <QString>
#include <QStringList>
#include <QTemporaryFile>

#include <functional>

/**
 * A state of apt's of our own for some sources and no others: lists, cache and settings below the user's cache folder.
 * The programs see it through environment(). Lists are shared by all objects for the same sources, and by later starts
 * of the program; what else an object writes goes with it. Everything here reads or writes files and some of it runs
 * apt: not for the interface thread.
 */
class PrivateApt
{
public:
    /**
     * Each source is written as it follows "deb " in a sources list, options included. The first of the architectures
     * is the one under which apt files packages for all.
     */
    PrivateApt(QStringList sources, const QStringList &architectures);
    PrivateApt(const PrivateApt &) = delete;
    PrivateApt &operator=(const PrivateApt &) = delete;

    /** False when the files could not be written. */
    bool isValid() const { return m_valid; }
    /** What apt is to get on top of its environment. */
    QStringList environment() const;

    struct Outcome
    {
        bool usable = false; ///< there are lists to ask, if not of all sources
        QStringList problems; ///< sources that could not be read, for the user; one line each
        QString details; ///< what apt said
    };
    /**
     * Fetches the lists unless that was done within the last hour. `progress` gets percents. A stop makes it return
     * soon, with nothing usable and no problem.
     */
    Outcome fetch(const StopRequest &stopped, const std::function<void(int percent)> &progress);

    /** The folder below the user's cache folder in which the program keeps what can be had again. */
    static QString cacheFolder();

private:
    QStringList m_sources;
    QString m_folder;
    QTemporaryFile m_sourceList;
    QTemporaryFile m_config;
    bool m_valid = false;

    bool makeFolders() const;
    bool writeFiles(const QStringList &architectures);
    bool hasLists(const StopRequest &stopped) const;
    void removeOldStates() const;
};
