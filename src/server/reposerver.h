// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/systemfile.h"

#include <QList>
#include <QString>
#include <QVector>

#include <chrono>
#include <optional>

/** A repository that this machine serves. */
struct PublishedRepo
{
    int port = 0; ///< TCP
    QString type; ///< "HTTP" or "FTP"
    QString path; ///< the directory of the repository
};

/** All that publishing changes, at one point in time. */
struct PublicationState
{
    QVector<SystemFile::State> files; ///< each server has an order of its own
    bool isActive = false; ///< of the service
    bool isEnabled = false; ///< of the service
};

/**
 * One way to serve repositories from this machine. It stores no state: every call reads from the system what is served.
 * All calls ask the service manager and wait for it. Changes need the rights of root.
 */
class RepoServer
{
public:
    RepoServer() = default;
    RepoServer(const RepoServer &) = delete;
    RepoServer &operator=(const RepoServer &) = delete;
    virtual ~RepoServer() = default;

    /** Serves the directory `path` on `port`. isPublishable() must allow the path. True on success. */
    virtual bool publish(const QString &path, int port) = 0;
    virtual bool unpublish(int port) = 0;
    /** The current state of all that publish() on this port would change; nothing when it cannot be read. */
    virtual std::optional<PublicationState> state(int port) = 0;
    /** Restores a result of state(), whatever has happened since; false when a file cannot be restored. */
    virtual bool restore(int port, const PublicationState &state) = 0;
    virtual bool isPublished(int port) = 0;
    virtual QList<PublishedRepo> publishedRepos() = 0;
    /** Whether publish() set up the current server. If not, it belongs to somebody else and must not be stopped. */
    virtual bool isConfiguredByUs() const { return true; }
    /** The log of the last publication of this object; empty when there is none. */
    virtual QString log() = 0;

protected:
    /** A server that cannot open its port or read its files ends well within this time. */
    static constexpr std::chrono::seconds WatchTime{1};
};
