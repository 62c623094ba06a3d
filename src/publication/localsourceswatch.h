// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/listedsources.h"
#include "server/localsources.h"

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QObject>

/** Knows what stands in the list of local sources, without reading it on the calling thread. */
class LocalSourcesWatch : public QObject
{
    Q_OBJECT
public:
    explicit LocalSourcesWatch(QObject *parent, QString path = LocalSources::Path);

    /** Nothing before the first reading. */
    const ListedSources &sources() const { return m_sources; }
    /** Reads again; due when the list was changed, which need not be noticed where its folder is missing. */
    void refresh();

Q_SIGNALS:
    void changed();
    /** The list was read, after the last refresh(); it need not be another one. */
    void refreshed();

private:
    void watch();
    void take();

    QString m_path;
    ListedSources m_sources;
    QFileSystemWatcher m_watcher;
    QFutureWatcher<ListedSources> m_reading;
    bool m_again = false; ///< changed while it was being read
};
