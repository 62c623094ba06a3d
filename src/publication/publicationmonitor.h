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
 * Knows what is published from this machine now. It reads on another thread, and reads again when the servers' files
 * or services change. The interface asks it, because the servers themselves block.
 */
class PublicationMonitor : public QObject
{
    Q_OBJECT
public:
    /** The result of one reading. */
    struct Snapshot
    {
        QVector<Publication> publications;
        QSet<int> listeningPorts;

        bool operator==(const Snapshot &other) const;
    };
    /** Called on the thread pool, one call at a time. A call may end after the monitor was deleted. */
    using Reader = std::function<Snapshot()>;

    /** One reading, which asks the service manager and waits for it. */
    static Snapshot read(const RepoServers &servers);

    explicit PublicationMonitor(QObject *parent = nullptr);
    PublicationMonitor(const std::shared_ptr<const RepoServers> &servers, QObject *parent);
    /** A change of one of the files and folders in `watched` causes a reading. */
    PublicationMonitor(Reader reader, QStringList watched, QObject *parent);
    ~PublicationMonitor() override;

    /** Whether the first reading has ended. Before that, publications() is empty. */
    bool isKnown() const { return m_known; }
    /** All publications, those over HTTP first. */
    QVector<Publication> publications() const { return m_snapshot.publications; }
    /** The publications of the repository in this directory. The path must be canonical; no file is read. */
    QVector<Publication> publicationsOf(const QString &canonicalPath) const;
    /** The ports on which programs of this machine listen, as of the last reading. A new listener causes no reading. */
    QSet<int> listeningPorts() const { return m_snapshot.listeningPorts; }
    /** Reads again now; refreshed() always follows. */
    void refresh();
    /** Whether to read every few seconds, which a window that shows the services needs. Off at first. */
    void setLive(bool live);

Q_SIGNALS:
    /** A reading has found something new, or the first reading has ended. */
    void changed();
    /** A reading that began after the last refresh() has ended. */
    void refreshed();

private Q_SLOTS:
    // QtDBus calls this slot by its name.
    void takeServiceMessage(const QDBusMessage &message);

private:
    Reader m_reader;
    QStringList m_watched;
    QFileSystemWatcher m_files;
    QFutureWatcher<Snapshot> m_reading;
    QTimer m_soon;
    QTimer m_live;
    bool m_again = false; ///< refresh() was called during a reading
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
