// SPDX-License-Identifier: GPL-3.0-or-later
// What this machine publishes. The checks and their questions are those of the window.
#include "cli/commands.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/terminal/console.h"
#include "cli/terminal/stopsignal.h"
#include "core/countof.h"
#include "platform/packagemanager.h"
#include "publication/helperclient.h"
#include "publication/publicationaddresses.h"
#include "publication/publicationconsent.h"
#include "publication/publicationmonitor.h"
#include "publication/publicationsettings.h"
#include "server/portrange.h"
#include "server/publicationpath.h"
#include "server/reposervers.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QRegularExpression>
#include <QSettings>

#include <algorithm>
#include <functional>
#include <optional>

namespace
{
/** Asks the helper, and waits for its answers. One object a command. */
class HelperCalls
{
public:
    using Call = std::function<void(HelperClient &, const HelperClient::Answer &)>;

    /** Nothing when the user has stopped it; the system may still do what it was asked for. */
    std::optional<HelperClient::Result> ask(const Call &call)
    {
        std::optional<HelperClient::Result> result;
        if (StopSignal::isRaised())
            return result;
        call(m_helper, [this, &result](const HelperClient::Result &answer) {
            result = answer;
            m_loop.quit();
        });
        m_loop.exec();
        return result;
    }

private:
    HelperClient m_helper;
    QEventLoop m_loop;
    StopSignal m_stop{[this] { m_loop.quit(); }};
};

QString nameOf(int protocol)
{
    return protocol == FtpProtocol ? QStringLiteral("ftp") : QStringLiteral("http");
}

QJsonObject objectOf(const Publication &publication)
{
    return {{QStringLiteral("path"), publication.repo.path},
            {QStringLiteral("protocol"), nameOf(publication.protocol)},
            {QStringLiteral("port"), publication.port()},
            {QStringLiteral("state"),
             publication.state.isEmpty() ? QJsonValue() : QJsonValue(publication.state)}};
}

PublicationMonitor::Snapshot readSystem()
{
    return PublicationMonitor::read(RepoServers());
}

/** Nothing when the text is no port, which is told. */
std::optional<int> portOf(const QString &text, Console &console)
{
    bool isNumber = false;
    const int port = text.toInt(&isNumber);
    if (isNumber && PortRange::contains(port))
        return port;
    console.error(QStringLiteral("usage"),
                  QCoreApplication::translate("cli", "There is no port %1.").arg(text));
    return std::nullopt;
}

ExitCode
fail(Console &console, const char *code, const QString &text, const QString &details, const QString &path)
{
    console.error(QLatin1String(code), text, details, path);
    return ExitCode::Failed;
}

/** What a call to the helper has brought. An answer that is no success is told unless `isDone`. */
ExitCode judge(const std::optional<HelperClient::Result> &result,
               bool isDone,
               const QString &text,
               const QString &why,
               Console &console)
{
    if (isDone)
        return ExitCode::Done;
    if (!result) {
        console.error(
            QStringLiteral("stopped"),
            QCoreApplication::translate("cli", "Stopped. The system may still do what it was asked for."));
        return ExitCode::Stopped;
    }
    if (result->errorText.isEmpty())
        return fail(console, "system", text, why, {});
    const QString advice = HelperClient::advice(result->error);
    const QString details = advice.isEmpty() ? result->details : result->details + QLatin1Char('\n') + advice;
    return fail(console,
                result->error == QDBusError::AccessDenied ? "denied" : "bus",
                result->errorText,
                details,
                {});
}

/** One command that publishes. */
class Publishing
{
public:
    Publishing(const PublicationRequest &request, int packageCount, Console &console)
        : m_request(request)
        , m_packageCount(packageCount)
        , m_console(console)
    { }

    ExitCode run()
    {
        if (!VeltAdmin::PackageManager::isPackageInstalled(ServerText::package(m_request.protocol)))
            return fail("server",
                        QCoreApplication::translate(
                            "cli", "The package %1, which serves the repository, is not installed.")
                            .arg(ServerText::package(m_request.protocol)));
        const PublicationMonitor::Snapshot system = readSystem();
        const auto rules = PublicationRules::judge(m_request, system.publications, system.listeningPorts);
        if (rules.obstacle == PublicationRules::Obstacle::OwnPublication && rules.own)
            return tell(
                QCoreApplication::translate("cli", "%1 is published already, over %2 on the port %3."));
        if (!rules.mayPublish())
            return fail("port", rules.reason);
        if (!PublicationPath::isPublishable(m_request.path))
            return fail("path", ServerText::unservable(m_request.path));
        const auto access = PublicationAccess::examine(m_request.path, m_request.protocol);
        const bool opensUp = !access.isOpen();
        if (opensUp && !agrees(PublicationConsent::access(m_request.path, access)))
            return refused("access");
        if (m_packageCount == 0 && !agrees(PublicationConsent::emptyRepository()))
            return refused("empty");
        const auto replacement = PublicationConsent::replacement(m_request, rules);
        if (replacement && !agrees(*replacement))
            return refused("replace");
        if (StopSignal::isRaised())
            return ExitCode::Stopped;
        if (opensUp) {
            const QString reason = PublicationAccess::openUp(m_request.path);
            if (!reason.isEmpty())
                return fail("access", reason);
        }
        return askSystem(rules);
    }

private:
    const PublicationRequest m_request;
    const int m_packageCount;
    Console &m_console;
    HelperCalls m_calls;

    ExitCode fail(const char *code, const QString &text)
    {
        return ::fail(m_console, code, text, {}, m_request.path);
    }

    /** The end after a no, or after a stop while the question was open. */
    ExitCode refused(const char *code)
    {
        const ExitCode end
            = fail(code, QCoreApplication::translate("cli", "The repository is not published."));
        return StopSignal::isRaised() ? ExitCode::Stopped : end;
    }

    bool agrees(const PublicationConsent &consent)
    {
        const QString text
            = consent.details.isEmpty() ? consent.text : consent.text + QLatin1Char('\n') + consent.details;
        return m_console.ask({consent.title, text}, &StopSignal::isRaised);
    }

    ExitCode askSystem(const PublicationRules &rules)
    {
        const QString notPublished = QCoreApplication::translate("cli", "The repository is not published.");
        // A running service would go on serving its old directory.
        if (rules.stopsFirst) {
            const auto ended = m_calls.ask([this](HelperClient &helper, const HelperClient::Answer &answer) {
                helper.unpublishRepo(m_request.port, m_request.protocol, answer);
            });
            const ExitCode code
                = judge(ended, ended && ended->done, notPublished, ServerText::whyRefused(), m_console);
            if (code != ExitCode::Done)
                return code;
        }
        const auto result = m_calls.ask([this](HelperClient &helper, const HelperClient::Answer &answer) {
            helper.publishRepo(m_request.path, m_request.port, m_request.protocol, answer);
        });
        // The system's state decides: the answer may have come too late.
        const auto publications = readSystem().publications;
        const bool isServed
            = std::any_of(publications.cbegin(), publications.cend(), [this](const Publication &one) {
                  return one.repo.path == m_request.path && one.protocol == m_request.protocol
                         && one.port() == m_request.port && one.state == QLatin1String("active");
              });
        const QString why = ServerText::whyNotStarted(m_request.protocol, m_request.port);
        const ExitCode code
            = judge(result, isServed || (result && result->done), notPublished, why, m_console);
        if (code != ExitCode::Done)
            return code;
        keep(publications);
        return tell(QCoreApplication::translate("cli", "%1 is published over %2 on the port %3."));
    }

    /** Stores the choices where the window finds them. */
    void keep(const QVector<Publication> &publications)
    {
        QSettings settings;
        PublicationSettings choice
            = PublicationSettings::find(settings, {m_request.path}).value_or(PublicationSettings());
        choice.port = m_request.port;
        choice.protocol = m_request.protocol;
        choice.repoPath = m_request.path;
        QList<int> served{choice.port};
        for (const Publication &one : publications) {
            if (one.repo.path == m_request.path)
                served.append(one.port());
        }
        PublicationSettings::release(settings, {m_request.path}, served);
        choice.claim(settings);
    }

    ExitCode tell(const QString &text)
    {
        m_console.line(
            text.arg(m_request.path, nameOf(m_request.protocol).toUpper(), QString::number(m_request.port)));
        m_console.object({{QStringLiteral("path"), m_request.path},
                          {QStringLiteral("protocol"), nameOf(m_request.protocol)},
                          {QStringLiteral("port"), m_request.port}});
        return ExitCode::Done;
    }
};

/** The publications that the operand of unpublish means. */
QVector<Publication> meantBy(const QString &word, const QString &path)
{
    bool isPort = false;
    const int port = word.toInt(&isPort);
    const QString canonical = Publication::canonicalPathOf(path);
    QVector<Publication> all = readSystem().publications;
    const auto isOther
        = [&](const Publication &one) { return isPort ? one.port() != port : one.repo.path != canonical; };
    all.erase(std::remove_if(all.begin(), all.end(), isOther), all.end());
    return all;
}

/** The address of this machine for others, as the window proposes it. */
QString ownAddress()
{
    QString address;
    QEventLoop loop;
    PublicationAddresses addresses;
    QObject::connect(&addresses,
                     &PublicationAddresses::found,
                     &loop,
                     [&](const QStringList &all, const QString &preferred) {
                         address = preferred.isEmpty() ? all.value(0, PublicationAddresses::loopback())
                                                       : preferred;
                         loop.quit();
                     });
    addresses.start();
    if (address.isEmpty())
        loop.exec();
    return address;
}
} // namespace

ExitCode Commands::publish(const Invocation &invocation, Console &console)
{
    if (invocation.has("http") && invocation.has("ftp")) {
        console.error(QStringLiteral("usage"),
                      QCoreApplication::translate("cli", "--http and --ftp cannot stand together."));
        return ExitCode::Usage;
    }
    PublicationRequest request;
    request.protocol = invocation.has("ftp") ? FtpProtocol : HttpProtocol;
    request.port = PortRange::Http;
    if (invocation.has("http") || invocation.has("ftp")) {
        const auto port = portOf(invocation.value(invocation.has("ftp") ? "ftp" : "http"), console);
        if (!port)
            return ExitCode::Usage;
        request.port = *port;
    }
    const auto reading = RepositoryReading::of(invocation.repository(), console);
    if (!reading)
        return ExitCode::Failed;
    request.path = Publication::canonicalPathOf(reading->path);
    const QString kept = PublicationSettings::keptPaths(QSettings()).value(request.port);
    request.registeredPath = kept == reading->path ? request.path : kept;
    return Publishing(request, countOf(reading->packages), console).run();
}

ExitCode Commands::unpublish(const Invocation &invocation, Console &console)
{
    const QString word = invocation.operands.first();
    const QVector<Publication> meant = meantBy(word, invocation.repository());
    const QString notEnded = QCoreApplication::translate("cli", "The repository is not unpublished.");
    if (meant.isEmpty())
        return fail(console,
                    "unpublished",
                    QCoreApplication::translate("cli", "%1 is not published.").arg(word),
                    {},
                    {});
    HelperCalls calls;
    QJsonArray ended;
    ExitCode worst = ExitCode::Done;
    for (const Publication &publication : meant) {
        if (publication.isForeign) {
            worst = fail(console,
                         "foreign",
                         notEnded,
                         QCoreApplication::translate("cli", "Somebody else has set up its server."),
                         publication.repo.path);
            continue;
        }
        const auto result = calls.ask([&](HelperClient &helper, const HelperClient::Answer &answer) {
            helper.unpublishRepo(publication.repo.port, publication.protocol, answer);
        });
        const auto left = readSystem().publications;
        const bool isListed = std::any_of(left.cbegin(), left.cend(), [&](const Publication &one) {
            return one.protocol == publication.protocol && one.repo.port == publication.repo.port;
        });
        const QString why = result && result->done
                                ? ServerText::whyNotStopped(publication.protocol, publication.repo.port)
                                : ServerText::whyRefused();
        const ExitCode code = judge(result, !isListed, notEnded, why, console);
        if (code != ExitCode::Done) {
            worst = code;
            if (code == ExitCode::Stopped)
                break;
            continue;
        }
        console.line(QCoreApplication::translate("cli", "%1 is no longer published over %2 on the port %3.")
                         .arg(publication.repo.path,
                              nameOf(publication.protocol).toUpper(),
                              QString::number(publication.port())));
        ended.append(objectOf(publication));
    }
    console.object({{QStringLiteral("unpublished"), ended}});
    return worst == ExitCode::Failed && !ended.isEmpty() ? ExitCode::Findings : worst;
}

ExitCode Commands::published(const Invocation &, Console &console)
{
    const auto publications = readSystem().publications;
    QJsonArray array;
    for (const Publication &publication : publications) {
        console.line(QStringLiteral("%1 %2 %3 %4")
                         .arg(nameOf(publication.protocol).toUpper(),
                              QString::number(publication.port()),
                              publication.state.isEmpty() ? QCoreApplication::translate("cli", "unknown")
                                                          : publication.state,
                              publication.repo.path));
        array.append(objectOf(publication));
    }
    console.object({{QStringLiteral("published"), array}});
    return ExitCode::Done;
}

ExitCode Commands::sourceLine(const Invocation &invocation, Console &console)
{
    static const QRegularExpression hostName(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z0-9.-]+|\\[[0-9A-Fa-f:.]+\\]")));
    if (invocation.has("host") && !hostName.match(invocation.value("host")).hasMatch()) {
        console.error(
            QStringLiteral("usage"),
            QCoreApplication::translate("cli", "%1 is no name or address.").arg(invocation.value("host")));
        return ExitCode::Usage;
    }
    std::optional<int> port;
    if (invocation.has("port")) {
        port = portOf(invocation.value("port"), console);
        if (!port)
            return ExitCode::Usage;
    }
    const auto reading = RepositoryReading::of(invocation.repository(), console);
    if (!reading)
        return ExitCode::Failed;
    const QString path = Publication::canonicalPathOf(reading->path);
    const auto publications = readSystem().publications;
    const auto rank = [&](const Publication &one) {
        if (one.repo.path != path || (port && one.port() != *port))
            return 0;
        return one.isRunning() ? 2 : 1;
    };
    const auto best = std::max_element(publications.cbegin(),
                                       publications.cend(),
                                       [&](const auto &a, const auto &b) { return rank(a) < rank(b); });
    const bool isPublished = best != publications.cend() && rank(*best) > 0;
    if (!isPublished && !port)
        return fail(
            console,
            "unpublished",
            QCoreApplication::translate("cli", "%1 is not published.").arg(path),
            QCoreApplication::translate("cli", "With --port the line is that of a publication over HTTP."),
            path);
    if (!isPublished)
        console.remark(QCoreApplication::translate("cli", "%1 is not published on the port %2 now.")
                           .arg(path)
                           .arg(*port));
    SourceLine line;
    line.protocol = isPublished ? best->protocol : int(HttpProtocol);
    line.port = isPublished ? best->port() : *port;
    const auto kept = PublicationSettings::find(QSettings(), {path, reading->path}, line.port)
                          .value_or(PublicationSettings());
    line.host = invocation.has("host") ? invocation.value("host") : kept.host;
    if (line.host.isEmpty())
        line.host = ownAddress();
    line.trusted = invocation.has("trusted");
    line.architectures = kept.architectures;
    line.codename = reading->info.codename;
    line.components = reading->info.components;
    console.line(line.text());
    console.object({{QStringLiteral("line"), line.text()}});
    return ExitCode::Done;
}
