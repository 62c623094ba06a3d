// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/scratchfolder.h"
#include "ui/search/packagefilter.h"

#include <QObject>
#include <QThread>

#include <atomic>
#include <memory>

class AptUtils;

/**
 * Searches the public repositories that apt knows, in a thread of its own. Only the newest search is answered: one that
 * is superseded ends early, and the programs it runs are killed. The same happens when the searcher is destroyed, so
 * that this takes a moment and not the seconds that apt takes. Made and destroyed in the thread of its user.
 */
class PackageSearcher : public QObject
{
    Q_OBJECT
public:
    /** The records of so many names are read; a short pattern fits tens of thousands. */
    static constexpr int NameLimit = 2000;

    explicit PackageSearcher(PackageFilter filter);
    ~PackageSearcher() override;

    /** Whether a search runs or waits to run. */
    bool isBusy() const { return m_pending > 0; }
    /** Gives up the search that runs; nothing is told of it. From any thread. */
    void cancel();

public Q_SLOTS:
    /**
     * Searches for packages whose names begin with the pattern, in place of any earlier search; an empty pattern only
     * ends that one. Returns at once, may be called from any thread. What cannot be the start of a name finds nothing,
     * without a program being run.
     */
    void startSearch(const QString &packagePattern);

Q_SIGNALS:
    void searchStarted();
    /** How many names begin with the pattern, and how many of them are looked at; the result follows. */
    void namesFound(const QString &packagePattern, int found, int lookedAt);
    /** The result of the search: what the filter lets pass, in apt's order. */
    void newPackageFound(const QList<PackageInfo> &packages);
    /** apt could not be asked; the result that follows is empty. `detailedText` is what apt said. */
    void searchFailed(const QString &text, const QString &detailedText);

private:
    void search(const QString &pattern, int number);
    void askForNamesOnly();
    QList<PackageInfo> packagesOf(const QStringList &names, int number);
    bool isSuperseded(int number) const { return m_newest != number; }

    QThread m_thread;
    const PackageFilter m_filter;
    AptUtils *m_apt;
    std::unique_ptr<ScratchFolder> m_config; ///< holds apt's configuration; made in the searcher's thread
    int m_current = 0; ///< number of the search that runs; used in the searcher's thread alone
    std::atomic_int m_newest{0}; ///< number of the search that is wanted
    std::atomic_int m_pending{0}; ///< searches that were started and have not ended
};
