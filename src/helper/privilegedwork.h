// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/helperrequest.h"
#include "server/ftpserver.h"
#include "server/httpserver.h"
#include "server/localsources.h"
#include "server/publicationintent.h"
#include "server/sourcekey.h"

#include <functional>

/**
 * Does authorised requests with root's rights. Only one thread may use it at a time. A request takes as long as the
 * service manager needs.
 */
class PrivilegedWork
{
public:
    /** The files and folders that are changed. */
    struct Places
    {
        QString sources = LocalSources::Path;
        QString keys = SourceKey::Folder;
        QString ftpConfig = QStringLiteral("/etc/vsftpd.conf");
        /** The helper's own folder; it is created when it does not exist. */
        QString stateFolder = QStringLiteral("/var/lib/velt-admin-repo-helper");
        HttpServer::Places http;
    };

    PrivilegedWork();
    explicit PrivilegedWork(const Places &places);

    /**
     * Undoes a publication, or finishes an unpublication, that an earlier helper began and did not end because of a
     * kill or a power cut. False when this fails; then it must be called again.
     */
    bool recover();
    /** Checks the request again, now also against the file system, and does it. */
    HelperOutcome run(const HelperRequest &request);

private:
    QString m_sources;
    QString m_stateFolder;
    QString m_intentFile;
    QString m_keys;
    HttpServer m_http;
    FtpServer m_ftp;

    HelperOutcome changeSources(const HelperRequest &request) const;
    HelperOutcome addWithKey(const HelperRequest &request) const;
    QString keyFile(const HelperRequest &request) const;
    HelperOutcome publish(const HelperRequest &request);
    HelperOutcome unpublish(const HelperRequest &request);
    bool follow(const PublicationIntent &intent);
    /** Does the work while the intent is stored in a file. After a kill, the next helper finds the file. */
    HelperOutcome
    doWithIntent(const PublicationIntent &intent, const QString &failure, const std::function<bool()> &work);
    RepoServer &server(int protocol);
};
