// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/listedsources.h"
#include "server/localsources.h"

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QObject>

/** Knows the list of local sources. It reads the list on another thread. */
class LocalSourcesWatch : public QObject
{
    Q_OBJECT
public:
    explicit LocalSourcesWatch(QObject *parent, QString path = LocalSources::Path);

    /** The list as it was last read; empty before the first reading. */
    const ListedSources &sources() const { return m_sources; }
    /** Reads the list again. Call it after a change: where the folder is missing, the watch does not see the change. */
    void refresh();

Q_SIGNALS:
    void changed();
    /** A reading that began after the last refresh() has ended. The list may be the same as before. */
    void refreshed();

private:
    void watch();
    void take();

    QString m_path;
    ListedSources m_sources;
    QFileSystemWatcher m_watcher;
    QFutureWatcher<ListedSources> m_reading;
    bool m_again = false; ///< the list was changed during the reading
};
