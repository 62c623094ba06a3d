// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

    /** Whether a line of the list begins with `line`; false as well before the first reading. */
    bool contains(const QString &line) const { return LocalSources::contains(m_text, line); }
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
    QString m_text;
    QFileSystemWatcher m_watcher;
    QFutureWatcher<QString> m_reading;
    bool m_again = false; ///< changed while it was being read
};
