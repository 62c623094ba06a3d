// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/offeredpackages.h"
#include "ui/search/packagefilter.h"

#include <QObject>
#include <QThread>

#include <atomic>

/**
 * Searches the public repositories that apt knows, and those that the user added, in a thread of its own. Only the
 * newest search is answered. An older search ends early, and its programs are killed. The destructor does the same, so
 * it returns quickly. Create and destroy it in the thread of its user.
 */
class PackageSearcher : public QObject
{
    Q_OBJECT
public:
    /** The lists of the sources that the user added are searched as they are. */
    explicit PackageSearcher(PackageFilter filter, AddedSources added = {});
    ~PackageSearcher() override;

    /** Whether a search is running or waiting. */
    bool isBusy() const { return m_pending > 0; }
    /** Cancels the present search without any signal. Thread-safe. */
    void cancel();
    /** Whether the next searches find the words of their text in names and short descriptions. Thread-safe. */
    void setInDescriptions(bool inDescriptions) { m_inDescriptions = inDescriptions; }

public Q_SLOTS:
    /**
     * Searches for packages whose names begin with the pattern, instead of any earlier search. An empty pattern only
     * cancels the earlier search. Returns at once. Thread-safe.
     */
    void startSearch(const QString &packagePattern);

Q_SIGNALS:
    void searchStarted();
    /** The result of the search for this text follows. */
    void answered(const QString &packagePattern);
    /** The result of the search: the packages that the filter accepts, by name. */
    void newPackageFound(const QList<PackageInfo> &packages);
    /** apt could not be asked, or a list could not be read; the result follows. `detailedText` is apt's message. */
    void searchFailed(const QString &text, const QString &detailedText);

private:
    void search(const QString &pattern, int number);
    QList<PackageInfo> accepted(const QList<PackageInfo> &offered) const;
    bool isSuperseded(int number) const { return m_newest != number; }

    QThread m_thread;
    const PackageFilter m_filter;
    OfferedPackages m_offered; ///< used only in the searcher's thread
    std::atomic_bool m_inDescriptions{false};
    std::atomic_int m_newest{0}; ///< number of the newest search
    std::atomic_int m_pending{0}; ///< searches that were started and have not ended
};
