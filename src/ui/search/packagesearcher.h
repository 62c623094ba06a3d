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
 * Searches the public repositories that apt knows, in a thread of its own. Only the newest search is answered. An older
 * search ends early, and its programs are killed. The destructor does the same, so it returns quickly although apt
 * takes seconds. Create and destroy it in the thread of its user.
 */
class PackageSearcher : public QObject
{
    Q_OBJECT
public:
    /** Most names whose records are read; tens of thousands of names match a short pattern. */
    static constexpr int NameLimit = 2000;

    explicit PackageSearcher(PackageFilter filter);
    ~PackageSearcher() override;

    /** Whether a search is running or waiting. */
    bool isBusy() const { return m_pending > 0; }
    /** Cancels the present search without any signal. Thread-safe. */
    void cancel();

public Q_SLOTS:
    /**
     * Searches for packages whose names begin with the pattern, instead of any earlier search. An empty pattern only
     * cancels the earlier search. Returns at once. Thread-safe. A pattern that no name can begin with finds nothing,
     * and no program is run.
     */
    void startSearch(const QString &packagePattern);

Q_SIGNALS:
    void searchStarted();
    /** The number of names that begin with the pattern, and the number that are looked up. The result follows. */
    void namesFound(const QString &packagePattern, int found, int lookedAt);
    /** The result of the search: the packages that the filter accepts, in apt's order. */
    void newPackageFound(const QList<PackageInfo> &packages);
    /** apt could not be asked; the result that follows is empty. `detailedText` is apt's message. */
    void searchFailed(const QString &text, const QString &detailedText);

private:
    void search(const QString &pattern, int number);
    void askForNamesOnly();
    QList<PackageInfo> packagesOf(const QStringList &names, int number);
    bool isSuperseded(int number) const { return m_newest != number; }

    QThread m_thread;
    const PackageFilter m_filter;
    AptUtils *m_apt;
    std::unique_ptr<ScratchFolder> m_config; ///< contains apt's configuration; made in the searcher's thread
    int m_current = 0; ///< number of the present search; used only in the searcher's thread
    std::atomic_int m_newest{0}; ///< number of the newest search
    std::atomic_int m_pending{0}; ///< searches that were started and have not ended
};
