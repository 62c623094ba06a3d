// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/helperrequest.h"
#include "server/ftpserver.h"
#include "server/httpserver.h"
#include "server/localsources.h"

/**
 * Does with root's rights what was asked for and authorised. Used on one thread at a time; a request takes as long as
 * the service manager does.
 */
class PrivilegedWork
{
public:
    /** The files that are changed. */
    struct Places
    {
        QString sources = LocalSources::Path;
        QString ftpConfig = QStringLiteral("/etc/vsftpd.conf");
        HttpServer::Places http;
    };

    PrivilegedWork();
    explicit PrivilegedWork(const Places &places);

    /** The request is checked again, and now also against the file system. */
    HelperOutcome run(const HelperRequest &request);

private:
    QString m_sources;
    HttpServer m_http;
    FtpServer m_ftp;

    HelperOutcome changeSources(const HelperRequest &request) const;
    HelperOutcome publish(const HelperRequest &request);
    HelperOutcome unpublish(const HelperRequest &request);
    RepoServer &server(int protocol);
};
