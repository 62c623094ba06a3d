// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publication.h"

#include <QCoreApplication>
#include <QSet>
#include <QVector>

#include <optional>

/** How the user would publish a repository. */
struct PublicationRequest
{
    QString path; ///< the repository's directory, canonical
    int protocol = HttpProtocol; ///< -1: none is chosen
    int port = 0;
    QString registeredPath; ///< canonical; of the repository for which the settings keep this port
};

/** What can be done about one request, and what it would bring about. It follows from its arguments alone. */
struct PublicationRules
{
    Q_DECLARE_TR_FUNCTIONS(PublicationRules)

public:
    QString obstacle; ///< why the repository cannot be published so, for the user; empty: it can
    /** What unpublishing ends: the publication of this repository that the request names, running or not. */
    std::optional<Publication> own;
    /** Publishing ends this publication of another repository, which has the one place of FTP or a dead service. */
    std::optional<Publication> replaced;
    /** `own` runs for a directory that has moved since; it goes on serving the old one until it is stopped. */
    bool stopsFirst = false;
    QVector<Publication> elsewhere; ///< this repository's other ones; publishing leaves them as they are

    bool mayPublish() const { return obstacle.isEmpty(); }
    bool mayUnpublish() const { return own.has_value(); }

    /** `listening` holds all ports of this machine that some program waits on. */
    static PublicationRules judge(const PublicationRequest &request,
                                  const QVector<Publication> &publications,
                                  const QSet<int> &listening);

    /** What goes into the place of `port` when the user has turned to this protocol: mostly that port itself. */
    static int proposedPort(int protocol, int port, const QSet<int> &listening);

private:
    void sort(const PublicationRequest &request, const QVector<Publication> &publications);
    static QString badRequest(const PublicationRequest &request);
    QString conflict(const PublicationRequest &request,
                     const QVector<Publication> &publications,
                     const QSet<int> &listening) const;
};
