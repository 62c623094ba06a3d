// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/privilegedwork.h"

#include "helper/journal.h"
#include "helper/requestrules.h"
#include "server/publicationpath.h"
#include "server/sourceline.h"
#include "server/systemfile.h"

#include <QFileInfo>
#include <QLoggingCategory>

namespace
{
Q_LOGGING_CATEGORY(category, "velt.helper")

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
    , m_stateFolder(places.stateFolder)
    , m_intentFile(places.stateFolder + QStringLiteral("/intent"))
    , m_keys(places.keys)
    , m_http(places.http)
    , m_ftp(places.ftpConfig, places.http.unitDir)
{ }

bool PrivilegedWork::recover()
{
    QString errorText;
    const auto file = SystemFile::read(m_intentFile, &errorText);
    if (file && !file->exists)
        return true;
    if (!file) {
        Journal::write(Journal::Error, errorText);
        return false;
    }
    const auto intent = PublicationIntent::read(file->contents);
    if (!intent)
        Journal::write(Journal::Error, QStringLiteral("%1 is damaged and not followed").arg(m_intentFile));
    else if (!follow(*intent))
        return false;
    if (SystemFile::remove(m_intentFile, &errorText))
        return true;
    Journal::write(Journal::Error, errorText);
    return false;
}

bool PrivilegedWork::follow(const PublicationIntent &intent)
{
    const QString port = QString::number(intent.port);
    if (intent.kind == PublicationIntent::Publish) {
        Journal::write(Journal::Warning,
                       QStringLiteral("the publication of %1 on port %2 was cut short and is undone")
                           .arg(Journal::quoted(intent.path), port));
        return server(intent.protocol).restore(intent.port, intent.before);
    }
    Journal::write(
        Journal::Warning,
        QStringLiteral("the end of the publication on port %1 was cut short and is completed").arg(port));
    // A configuration that somebody else has set up meanwhile is left alone.
    return (intent.protocol == FtpProtocol && !m_ftp.isConfiguredByUs())
           || server(intent.protocol).unpublish(intent.port);
}

HelperOutcome PrivilegedWork::doWithIntent(const PublicationIntent &intent,
                                           const QString &failure,
                                           const std::function<bool()> &work)
{
    QString errorText;
    const QByteArray text = intent.text();
    if (text.size() > SystemFile::SizeLimit)
        return {HelperOutcome::Failed, QStringLiteral("The present configuration is too large.")};
    if (!SystemFile::makeFolder(m_stateFolder, &errorText)
        || !SystemFile::write(m_intentFile, text, 0600, SystemFile::Existing::Replaced, &errorText))
        return {HelperOutcome::Failed, errorText};
    const bool isDone = work();
    // If the file stays, the next helper reverts or repeats the work, so it must not be reported as done.
    if (!SystemFile::remove(m_intentFile, &errorText))
        return {HelperOutcome::Failed, errorText};
    return isDone ? done() : HelperOutcome{HelperOutcome::Failed, failure};
}

HelperOutcome PrivilegedWork::run(const HelperRequest &request)
{
    const QString problem = RequestRules::problem(request);
    if (!problem.isEmpty())
        return {HelperOutcome::Invalid, problem};
    const bool isPublication
        = request.method == HelperRequest::PublishRepo || request.method == HelperRequest::UnpublishRepo;
    if (isPublication && !recover()) {
        return {HelperOutcome::Failed,
                QStringLiteral("A publication that was cut short could not be brought in order.")};
    }
    switch (request.method) {
    case HelperRequest::AddLocalSource:
    case HelperRequest::RemoveLocalSource:
        return changeSources(request);
    case HelperRequest::AddSignedLocalSource:
        return addWithKey(request);
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
    // Latin-1 maps each byte to one character, so that text of other authors survives in any encoding.
    const QString text = QString::fromLatin1(file->contents);
    const QString entry = QString::fromLatin1(request.entry.toUtf8());
    const bool isRemoval = request.method == HelperRequest::RemoveLocalSource;
    const QString changed
        = isRemoval ? LocalSources::removed(text, entry) : LocalSources::appended(text, entry);
    if (changed != text
        && !SystemFile::write(
            m_sources, changed.toLatin1(), file->mode, SystemFile::Existing::Replaced, &errorText))
        return {HelperOutcome::Failed, errorText};
    // The key is deleted with the last line that names it. A key that stays is harmless: apt uses it for no other
    // source.
    const QString key = keyFile(request);
    if (isRemoval && !key.isEmpty() && !changed.contains(QFileInfo(key).fileName())
        && !SystemFile::remove(key, &errorText))
        qCWarning(category, "%ls", qUtf16Printable(errorText));
    return done();
}

HelperOutcome PrivilegedWork::addWithKey(const HelperRequest &request) const
{
    const QString key = keyFile(request);
    QString errorText;
    const auto before = SystemFile::read(key, &errorText);
    // The key is written first: a line whose key is missing breaks apt's updates.
    if (!before || !SystemFile::makeFolder(m_keys, &errorText)
        || !SystemFile::write(key, request.key.toLatin1(), 0644, SystemFile::Existing::Replaced, &errorText))
        return {HelperOutcome::Failed, errorText};
    HelperOutcome outcome = changeSources(request);
    if (outcome.kind != HelperOutcome::Done && !SystemFile::restore(key, *before, &errorText))
        qCWarning(category, "%ls", qUtf16Printable(errorText));
    return outcome;
}

QString PrivilegedWork::keyFile(const HelperRequest &request) const
{
    const QString named = QFileInfo(RequestRules::keyFile(request.entry)).fileName();
    return named.isEmpty() ? QString() : QStringLiteral("%1/%2").arg(m_keys, named);
}

HelperOutcome PrivilegedWork::publish(const HelperRequest &request)
{
    if (!PublicationPath::isPublishable(request.path)) {
        return {HelperOutcome::Invalid,
                QStringLiteral("%1 is not the canonical path of a repository outside of /tmp and /var/tmp.")
                    .arg(request.path)};
    }
    RepoServer &server = this->server(request.protocol);
    const QString failure = QStringLiteral("The server could not be started.");
    const auto before = server.state(request.port);
    if (!before)
        return {HelperOutcome::Failed, failure};
    return doWithIntent({PublicationIntent::Publish, request.protocol, request.port, request.path, *before},
                        failure,
                        [&] { return server.publish(request.path, request.port); });
}

HelperOutcome PrivilegedWork::unpublish(const HelperRequest &request)
{
    // An FTP server with another configuration serves somebody else's files, so we must not stop it.
    if (request.protocol == FtpProtocol && !m_ftp.isConfiguredByUs()) {
        return {HelperOutcome::Failed,
                QStringLiteral("The FTP server is not configured by this program and goes on as it does.")};
    }
    return doWithIntent({PublicationIntent::Unpublish, request.protocol, request.port, {}, {}},
                        QStringLiteral("The server could not be stopped."),
                        [&] { return server(request.protocol).unpublish(request.port); });
}

RepoServer &PrivilegedWork::server(int protocol)
{
    if (protocol == FtpProtocol)
        return m_ftp;
    return m_http;
}
