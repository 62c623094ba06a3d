// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/systemfile.h"

#include <QList>
#include <QString>
#include <QVector>

#include <chrono>
#include <optional>

/** A repository that is served from this machine. */
struct PublishedRepo
{
    int port = 0; ///< TCP
    QString type; ///< "HTTP" or "FTP"
    QString path; ///< the directory
};

/** What publishing changes, as it was at one time. */
struct PublicationState
{
    QVector<SystemFile::State> files; ///< in an order that the server knows
    bool isActive = false; ///< of the service
    bool isEnabled = false; ///< of the service
};

/**
 * A way to serve repositories from this machine. It keeps no state of its own: what is served is read from the system
 * each time. All calls ask the service manager and wait for it. Changing takes root's rights.
 */
class RepoServer
{
public:
    RepoServer() = default;
    RepoServer(const RepoServer &) = delete;
    RepoServer &operator=(const RepoServer &) = delete;
    virtual ~RepoServer() = default;

    /** Serves the directory `path`, which must be one that isPublishable() allows, on `port`; true when it is. */
    virtual bool publish(const QString &path, int port) = 0;
    virtual bool unpublish(int port) = 0;
    /** What publish() on this port would change, as it is now; nothing when it cannot be read. */
    virtual std::optional<PublicationState> state(int port) = 0;
    /** Brings back what state() has found, from whatever there is; false when a file cannot be brought back. */
    virtual bool restore(int port, const PublicationState &state) = 0;
    virtual bool isPublished(int port) = 0;
    virtual QList<PublishedRepo> publishedRepos() = 0;
    /** Whether what is served was set up by publish(); else it is somebody else's, and not to be stopped. */
    virtual bool isConfiguredByUs() const { return true; }
    /** The log of the last publication made through this object; empty when there is none. */
    virtual QString log() = 0;

protected:
    /** A server that cannot have its port, or cannot read what it needs, ends well within this time. */
    static constexpr std::chrono::seconds WatchTime{1};
};
