// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publicationaccess.h"
#include "server/publicationrules.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

/** A question that the user must answer with yes before a repository is published. Window and command line ask it. */
struct PublicationConsent
{
    Q_DECLARE_TR_FUNCTIONS(PublicationConsent)
public:
    QString title;
    QString text;
    QString details; ///< may be empty

    /** Whether all users may read the repository in `path`, which this finding tells to be closed. */
    static PublicationConsent access(const QString &path, const PublicationAccess &finding);
    static PublicationConsent emptyRepository();
    /** Whether a configuration or the publication of another repository may be replaced; nothing where none is. */
    static std::optional<PublicationConsent> replacement(const PublicationRequest &request,
                                                         const PublicationRules &rules);
};

/** What the user is told about servers. */
struct ServerText
{
    Q_DECLARE_TR_FUNCTIONS(ServerText)
public:
    /** The Debian package of the server for this protocol. */
    static QString package(int protocol);
    /** The name of the service that serves on this port, without its suffix. */
    static QString service(int protocol, int port);
    /** Why the directory is none that PublicationPath lets through. */
    static QString unservable(const QString &path);
    /** Where the administrator reads why a service did not start. */
    static QString whyNotStarted(int protocol, int port);
    /** Where the administrator reads why a service still runs. */
    static QString whyNotStopped(int protocol, int port);
    /** Where the administrator reads why the helper has refused. */
    static QString whyRefused();
};
