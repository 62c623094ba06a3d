// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/privilegedwork.h"

#include "helper/requestrules.h"
#include "server/publicationpath.h"
#include "server/sourceline.h"
#include "server/systemfile.h"

namespace
{
HelperOutcome done()
{
    return {HelperOutcome::Done, {}};
}
} // namespace

PrivilegedWork::PrivilegedWork()
    : PrivilegedWork(Places())
{ }

PrivilegedWork::PrivilegedWork(const Places &places)
    : m_sources(places.sources)
    , m_http(places.http)
    , m_ftp(places.ftpConfig, places.http.unitDir)
{ }

HelperOutcome PrivilegedWork::run(const HelperRequest &request)
{
    const QString problem = RequestRules::problem(request);
    if (!problem.isEmpty())
        return {HelperOutcome::Invalid, problem};
    switch (request.method) {
    case HelperRequest::AddLocalSource:
    case HelperRequest::RemoveLocalSource:
        return changeSources(request);
    case HelperRequest::PublishRepo:
        return publish(request);
    case HelperRequest::UnpublishRepo:
        return unpublish(request);
    }
    return {HelperOutcome::Invalid, QStringLiteral("There is no such request.")};
}

HelperOutcome PrivilegedWork::changeSources(const HelperRequest &request) const
{
    QString errorText;
    const auto file = SystemFile::read(m_sources, &errorText);
    if (!file)
        return {HelperOutcome::Failed, errorText};
    // A character a byte: what others have written into the file survives in whatever encoding it is.
    const QString text = QString::fromLatin1(file->contents);
    const QString entry = QString::fromLatin1(request.entry.toUtf8());
    const QString changed = request.method == HelperRequest::AddLocalSource
                                ? LocalSources::appended(text, entry)
                                : LocalSources::removed(text, entry);
    if (changed == text
        || SystemFile::write(
            m_sources, changed.toLatin1(), file->mode, SystemFile::Existing::Replaced, &errorText))
        return done();
    return {HelperOutcome::Failed, errorText};
}

HelperOutcome PrivilegedWork::publish(const HelperRequest &request)
{
    if (!PublicationPath::isPublishable(request.path)) {
        return {HelperOutcome::Invalid,
                QStringLiteral("%1 is not the canonical path of a repository outside of /tmp.")
                    .arg(request.path)};
    }
    if (!server(request.protocol).publish(request.path, request.port))
        return {HelperOutcome::Failed, QStringLiteral("The server could not be started.")};
    return done();
}

HelperOutcome PrivilegedWork::unpublish(const HelperRequest &request)
{
    // An FTP server that is set up otherwise serves somebody else's files and is not ours to stop.
    if (request.protocol == FtpProtocol && !m_ftp.isConfiguredByUs()) {
        return {HelperOutcome::Failed,
                QStringLiteral("The FTP server is not configured by this program and goes on as it does.")};
    }
    if (!server(request.protocol).unpublish(request.port))
        return {HelperOutcome::Failed, QStringLiteral("The server could not be stopped.")};
    return done();
}

RepoServer &PrivilegedWork::server(int protocol)
{
    if (protocol == FtpProtocol)
        return m_ftp;
    return m_http;
}
