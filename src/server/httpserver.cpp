// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/httpserver.h"

#include "server/portrange.h"
#include "server/publicationpath.h"
#include "server/publicationunit.h"
#include "service/systemdservice.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <unistd.h>

namespace
{
Q_LOGGING_CATEGORY(category, "velt.server")

QString logFileName(const QString &prefix, int port)
{
    return QStringLiteral("%1%2.log").arg(prefix, QString::number(port));
}
} // namespace

HttpServer::HttpServer()
    : HttpServer(Places())
{ }

HttpServer::HttpServer(const Places &places)
    : m_logPrefix(places.logPrefix)
    , m_unitDir(places.unitDir)
    , m_stagingDir(places.stagingDir)
{
    QFile file(places.templateFile);
    if (file.open(QIODevice::ReadOnly))
        m_template = QString::fromUtf8(file.readAll());
}

QString HttpServer::templateFile()
{
    const QLatin1String suffix("-helper");
    const QString application = QCoreApplication::applicationName();
    const QString file = QStringLiteral("%1/%2").arg(QString(application).remove(suffix),
                                                     QStringLiteral("public-repo-template.service"));
    const QString beside
        = QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1String("/../share/") + file);
    const bool isHelper = application.endsWith(suffix);
    return isHelper || QFileInfo::exists(beside) ? beside : QLatin1String("/usr/share/") + file;
}

QString HttpServer::logFile(int port)
{
    return logFileName(QStringLiteral("/tmp/http"), port);
}

QString HttpServer::unitFile(int port) const
{
    return QStringLiteral("%1/%2").arg(m_unitDir, PublicationUnit::fileName(port));
}

bool HttpServer::publish(const QString &path, int port)
{
    if (!PortRange::contains(port) || !PublicationPath::isPublishable(path))
        return false;
    m_logFile.setFileName(logFileName(m_logPrefix, port));
    const QString unit = PublicationUnit::text(m_template, path, port);
    const PublishedRepo readBack = PublicationUnit::read(unit);
    if (readBack.path != path || readBack.port != port) {
        qCWarning(category, "The unit template is missing or damaged.");
        return false;
    }

    const auto before = state(port);
    if (!before)
        return false;
    VeltAdmin::SystemdService service(PublicationUnit::serviceName(port));
    // Requests in a row are no restart loop.
    service.resetFailed();
    if (!install(unit, port) || !service.start() || !service.staysActive(WatchTime) || !isPublished(port)) {
        if (!service.errorText().isEmpty())
            qCWarning(category, "%ls", qUtf16Printable(service.errorText()));
        restore(port, *before);
        return false;
    }
    if (!service.isEnabled() && !service.enable())
        qCWarning(category, "%ls", qUtf16Printable(service.errorText()));
    return true;
}

bool HttpServer::install(const QString &unit, int port) const
{
    QString errorText;
    const QByteArray contents = unit.toUtf8();
    const QString staging = QStringLiteral("%1/%2").arg(m_stagingDir, PublicationUnit::fileName(port));
    const bool isDone
        = SystemFile::writeStaging(staging, contents, &errorText)
          && SystemFile::write(unitFile(port), contents, 0644, SystemFile::Existing::Replaced, &errorText)
          && VeltAdmin::SystemdService::reload(&errorText);
    if (!isDone)
        qCWarning(category, "%ls", qUtf16Printable(errorText));
    return isDone;
}

std::optional<PublicationState> HttpServer::state(int port)
{
    QString errorText;
    const auto unit = SystemFile::read(unitFile(port), &errorText);
    if (!unit) {
        qCWarning(category, "%ls", qUtf16Printable(errorText));
        return {};
    }
    const VeltAdmin::SystemdService service(PublicationUnit::serviceName(port));
    return PublicationState{{*unit}, service.isActive(), service.isEnabled()};
}

bool HttpServer::restore(int port, const PublicationState &state)
{
    if (state.files.size() != 1) {
        qCWarning(category, "The state to bring back is none of this server, and is not followed.");
        return true;
    }
    VeltAdmin::SystemdService service(PublicationUnit::serviceName(port));
    if (!state.isActive)
        service.stop();
    if (!state.isEnabled && service.isEnabled())
        service.disable();
    QString errorText;
    const bool isDone = SystemFile::restore(unitFile(port), state.files.constFirst(), &errorText)
                        && VeltAdmin::SystemdService::reload(&errorText);
    if (!isDone)
        qCWarning(category, "%ls", qUtf16Printable(errorText));
    if (!state.isActive)
        service.resetFailed();
    else if (!service.isActive())
        service.start();
    return isDone;
}

bool HttpServer::unpublish(int port)
{
    VeltAdmin::SystemdService service(PublicationUnit::serviceName(port));
    service.stop();
    service.disable();
    // A running service without its unit would be hard to find, so the unit stays.
    if (!service.isStopped()) {
        qCWarning(category, "The service on port %d cannot be stopped.", port);
        return true;
    }
    QString errorText;
    if (!SystemFile::remove(unitFile(port), &errorText) || !VeltAdmin::SystemdService::reload(&errorText))
        qCWarning(category, "%ls", qUtf16Printable(errorText));
    service.resetFailed();
    return true;
}

bool HttpServer::isPublished(int port)
{
    return VeltAdmin::SystemdService(PublicationUnit::serviceName(port)).isActive();
}

QList<PublishedRepo> HttpServer::publishedRepos()
{
    QList<PublishedRepo> repos;
    const QDir folder(m_unitDir);
    const QStringList names = folder.entryList({PublicationUnit::FileNamePattern}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        const auto unit = SystemFile::read(folder.filePath(name));
        repos.append(PublicationUnit::read(unit ? QString::fromUtf8(unit->contents) : QString()));
    }
    return repos;
}

QString HttpServer::log()
{
    if (m_logFile.fileName().isEmpty() || !m_logFile.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(m_logFile.readAll());
    m_logFile.close();
    return text;
}
