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
        QString keys = SourceKey::Folder;
        QString ftpConfig = QStringLiteral("/etc/vsftpd.conf");
        /** The helper's own; it is made when it is not there. */
        QString stateFolder = QStringLiteral("/var/lib/velt-admin-repo-helper");
        HttpServer::Places http;
    };

    PrivilegedWork();
    explicit PrivilegedWork(const Places &places);

    /**
     * Undoes a publication and finishes an unpublication that an earlier helper has begun and not ended, because it was
     * killed or the power was cut. False when that fails; then it is due again.
     */
    bool recover();
    /** The request is checked again, and now also against the file system. */
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
    /** Does the work under an intent: whatever ends the program meanwhile, the next one finds it. */
    HelperOutcome
    doWithIntent(const PublicationIntent &intent, const QString &failure, const std::function<bool()> &work);
    RepoServer &server(int protocol);
};
