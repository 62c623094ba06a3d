// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"
#include "server/sourceline.h"

#include <QObject>
#include <QVector>

#include <memory>

class RepoServers;

/** A repository that is published, and how its service does. */
struct Publication
{
    PublishedRepo repo;
    int protocol = HttpProtocol;
    QString state; ///< the service's: "active", "failed", "inactive" and so on; empty when it cannot be told

    bool operator==(const Publication &other) const;
};

/**
 * Knows what is published from this machine right now. It reads aside, again whenever the servers' files or services
 * change, and tells when the picture is another one. The interface asks it instead of the servers, which block.
 */
class PublicationMonitor : public QObject
{
    Q_OBJECT
public:
    explicit PublicationMonitor(QObject *parent = nullptr);
    PublicationMonitor(std::shared_ptr<const RepoServers> servers, QObject *parent);
    ~PublicationMonitor() override;

    /** Whether the first reading has ended; before, nothing is known and publications() is empty. */
    bool isKnown() const { return m_known; }
    /** Those over HTTP first. */
    QVector<Publication> publications() const { return m_publications; }
    /** The publications of the repository in this directory, however its path is spelled. */
    QVector<Publication> publicationsOf(const QString &repoPath) const;
    /** Reads again now; refreshed() follows in any case. */
    void refresh();

Q_SIGNALS:
    void changed();
    void refreshed();

private:
    bool m_known = false;
    QVector<Publication> m_publications;
};
