// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publication.h"

#include <QCoreApplication>
#include <QSet>
#include <QVector>

#include <optional>

/** The user's choices for publishing a repository. */
struct PublicationRequest
{
    QString path; ///< the repository's directory, canonical
    int protocol = HttpProtocol; ///< -1: none is chosen yet
    int port = 0;
    QString registeredPath; ///< canonical; of the repository that the settings store for this port
};

/** Decides what the user can do with one request, and its consequences. Depends on its arguments only. */
struct PublicationRules
{
    Q_DECLARE_TR_FUNCTIONS(PublicationRules)

public:
    /** What keeps the repository from being published so. */
    enum class Obstacle {
        None,
        BadRequest, ///< the request itself cannot be fulfilled
        OwnPublication, ///< the repository is published there already
        OtherRepository,
        OtherProgram
    };

    Obstacle obstacle = Obstacle::None;
    QString reason; ///< the obstacle in words for the user; empty when there is none
    /** The publication of this repository in the place of the request, running or not. Unpublishing ends it. */
    std::optional<Publication> own;
    /**
     * The publication of another repository that publishing replaces: the only one of FTP, or one whose service is
     * dead.
     */
    std::optional<Publication> replaced;
    /** `own` runs for a directory that has moved since. It serves the old directory until it is stopped. */
    bool stopsFirst = false;
    QVector<Publication> elsewhere; ///< other publications of this repository; they do not change

    bool mayPublish() const { return obstacle == Obstacle::None; }
    bool mayUnpublish() const { return own.has_value(); }

    /** `listening` holds all ports of this machine on which a program listens. */
    static PublicationRules judge(const PublicationRequest &request,
                                  const QVector<Publication> &publications,
                                  const QSet<int> &listening);

    /** The port to propose when the user switches to this protocol: in most cases `port` itself. */
    static int proposedPort(int protocol, int port, const QSet<int> &listening);

private:
    void sort(const PublicationRequest &request, const QVector<Publication> &publications);
    void refuse(Obstacle what, const QString &why);
    static QString badRequest(const PublicationRequest &request);
    void findConflict(const PublicationRequest &request,
                      const QVector<Publication> &publications,
                      const QSet<int> &listening);
};
