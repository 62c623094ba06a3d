// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publication.h"

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <functional>
#include <memory>

class QDBusMessage;
class RepoServers;

/**
 * Knows what is published from this machine right now. It reads in the background, again whenever the servers' files
 * or services change, and tells when the snapshot is another one. The interface asks it instead of the servers, which
 * block.
 */
class PublicationMonitor : public QObject
{
    Q_OBJECT
public:
    /** What one reading has found. */
    struct Snapshot
    {
        QVector<Publication> publications;
        QSet<int> listeningPorts;

        bool operator==(const Snapshot &other) const;
    };
    /** Called on the thread pool, never twice at a time, and perhaps after the monitor has gone. */
    using Reader = std::function<Snapshot()>;

    explicit PublicationMonitor(QObject *parent = nullptr);
    PublicationMonitor(const std::shared_ptr<const RepoServers> &servers, QObject *parent);
    /** `watched` are files and folders whose change calls for a reading. */
    PublicationMonitor(Reader reader, QStringList watched, QObject *parent);
    ~PublicationMonitor() override;

    /** Whether the first reading has ended; before, nothing is known and publications() is empty. */
    bool isKnown() const { return m_known; }
    /** Those over HTTP first. */
    QVector<Publication> publications() const { return m_snapshot.publications; }
    /** The publications of the repository in this directory, whose path is canonical: touches no file. */
    QVector<Publication> publicationsOf(const QString &canonicalPath) const;
    /** On which any program of this machine waits; as of the last reading, which no such program brings about. */
    QSet<int> listeningPorts() const { return m_snapshot.listeningPorts; }
    /** Reads again now; refreshed() follows in any case. */
    void refresh();
    /** Reads again every few seconds from now on, or no longer: for who looks at the services. Starts switched off. */
    void setLive(bool live);

Q_SIGNALS:
    /** A reading has found another snapshot than the one before it, or the first one. */
    void changed();
    /** A reading has ended that began after the last refresh(). */
    void refreshed();

private Q_SLOTS:
    // What QtDBus calls, by name.
    void takeServiceMessage(const QDBusMessage &message);

private:
    Reader m_reader;
    QStringList m_watched;
    QFileSystemWatcher m_files;
    QFutureWatcher<Snapshot> m_reading;
    QTimer m_soon;
    QTimer m_live;
    bool m_again = false; ///< a refresh() has come while a reading ran
    bool m_known = false;
    Snapshot m_snapshot;

    void watchFiles();
    bool isWatched(const QString &path) const;
    void takeFolderChange(const QString &folder);
    void subscribe();
    void refreshSoon();
    void refreshWhenFree();
    void startReading();
    void takeReading();
};
