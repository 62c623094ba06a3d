// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/publishcommand.h"

#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "platform/packagemanager.h"
#include "publication/publicationconsent.h"
#include "server/httpserver.h"
#include "server/publicationpath.h"
#include "ui/dialogs/missingpackage.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/publicationtext.h"
#include "ui/tab/publicationpanel.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/logtail.h"

#include <QFileInfo>
#include <QSettings>

#include <algorithm>

PublishCommand::PublishCommand(const Workbench &bench,
                               PublicationMonitor &monitor,
                               HelperClient &helper,
                               QObject *parent)
    : QObject(parent)
    , m_bench(bench)
    , m_monitor(monitor)
    , m_helper(helper)
{
    renewKeptPorts();
}

// --- checks before publishing ------------------------------------------------------------------------------------

void PublishCommand::publish(RepoWidget *widget)
{
    if (m_bench.tabs.isRunning(widget) || widget->repoPath().isEmpty())
        return;
    const PublicationRequest wanted = requestOf(*widget);
    if (wanted.protocol < 0) {
        widget->showPublication();
        m_bench.feedback.announce(tr("Choose a server type, then publish the repository once more."));
        widget->publicationPanel()->askServerType();
        return;
    }
    m_bench.tabs.setWaiting(widget, true);
    checkPackage({widget, wanted, {}});
}

PublicationRequest PublishCommand::requestOf(const RepoWidget &widget) const
{
    const PublicationSettings choice = widget.publicationPanel()->choice();
    const QString canonicalPath = widget.repoShell()->canonicalPath();
    const QString kept = m_keptPorts.value(choice.port);
    return {canonicalPath, choice.protocol, choice.port, kept == widget.repoPath() ? canonicalPath : kept};
}

void PublishCommand::renewKeptPorts()
{
    m_keptPorts = PublicationSettings::keptPaths(QSettings());
}

bool PublishCommand::goesOn(const Request &request) const
{
    return !request.widget.isNull() && !m_bench.prompts.isDismissed();
}

void PublishCommand::giveUp(const Request &request)
{
    if (goesOn(request))
        m_bench.tabs.setWaiting(request.widget, false);
}

void PublishCommand::refuse(const Request &request, const QString &reason)
{
    m_bench.feedback.errorOf(
        request.widget, tr("The repository is not published!"), reason, RepoEnums::WARNING);
    giveUp(request);
}

void PublishCommand::afterReading(const std::function<void()> &next)
{
    auto *once = new QObject(this);
    connect(&m_monitor, &PublicationMonitor::refreshed, once, [once, next] {
        once->deleteLater();
        once->disconnect();
        next();
    });
    m_monitor.refresh();
}

void PublishCommand::checkPackage(const Request &request)
{
    const QString package = ServerText::package(request.wanted.protocol);
    VeltAdmin::PackageManager::isPackageInstalled(package, this, [this, request, package](bool isInstalled) {
        if (!goesOn(request))
            return;
        if (isInstalled) {
            afterReading([this, request] { checkPort(request); });
            return;
        }
        // First, so that nobody else takes the tab for free while the question is open.
        offerMissingPackage(m_bench.prompts, package);
        giveUp(request);
    });
}

void PublishCommand::checkPort(Request request)
{
    if (!goesOn(request))
        return;
    request.rules
        = PublicationRules::judge(request.wanted, m_monitor.publications(), m_monitor.listeningPorts());
    if (request.rules.mayPublish())
        checkAccess(request);
    else
        refuse(request, request.rules.reason);
}

void PublishCommand::checkAccess(const Request &request)
{
    struct Finding
    {
        bool isPublishable;
        PublicationAccess access;
    };
    const auto look = [path = request.wanted.path, protocol = request.wanted.protocol] {
        return Finding{PublicationPath::isPublishable(path), PublicationAccess::examine(path, protocol)};
    };
    runInBackground(this, look, [this, request](const Finding &found) {
        if (!goesOn(request))
            return;
        if (found.isPublishable)
            judgeAccess(request, found.access);
        else
            refuse(request, ServerText::unservable(request.wanted.path));
    });
}

void PublishCommand::judgeAccess(const Request &request, const PublicationAccess &access)
{
    if (access.isOpen()) {
        confirm(request);
        return;
    }
    const auto consent = PublicationConsent::access(request.wanted.path, access);
    const Prompts::Answer answer = m_bench.prompts.ask(consent.title, consent.text, consent.details);
    if (answer == Prompts::Answer::Yes && goesOn(request))
        openUp(request);
    else
        giveUp(request);
}

void PublishCommand::openUp(const Request &request)
{
    const auto open = [path = request.wanted.path] { return PublicationAccess::openUp(path); };
    runInBackground(this, open, [this, request](const QString &failure) {
        if (!goesOn(request))
            return;
        if (failure.isEmpty())
            confirm(request);
        else
            refuse(request, failure);
    });
}

bool PublishCommand::agreesToReplace(const Request &request)
{
    const auto consent = PublicationConsent::replacement(request.wanted, request.rules);
    return !consent
           || m_bench.prompts.askCarefully(consent->title, consent->text, consent->details)
                  == Prompts::Answer::Yes;
}

void PublishCommand::confirm(const Request &request)
{
    const auto agrees = [this, &request] {
        const bool isEmpty = request.widget->repoShell()->packageCount() == 0;
        const auto consent = PublicationConsent::emptyRepository();
        if (isEmpty && m_bench.prompts.ask(consent.title, consent.text) != Prompts::Answer::Yes)
            return false;
        return goesOn(request) && agreesToReplace(request);
    };
    if (!agrees())
        giveUp(request);
    else if (goesOn(request))
        makeRoom(request);
}

// --- the system --------------------------------------------------------------------------------------------------

void PublishCommand::makeRoom(const Request &request)
{
    m_bench.feedback.showWaiting(request.widget,
                                 tr("Waiting for the system to publish %1").arg(request.wanted.path));
    if (!request.rules.stopsFirst) {
        askSystem(request);
        return;
    }
    // A running service would go on serving its old directory.
    m_helper.unpublishRepo(
        request.wanted.port, request.wanted.protocol, [this, request](const HelperClient::Result &result) {
            afterReading([this, request, result] {
                if (!result.done)
                    finish(request, result);
                else if (!isListed(*request.rules.own))
                    askSystem(request);
                else if (goesOn(request))
                    endWaiting(
                        request.widget,
                        QString(),
                        {tr("The repository is not published!"),
                         ServerText::whyNotStopped(request.rules.own->protocol, request.rules.own->repo.port),
                         {}});
            });
        });
}

void PublishCommand::askSystem(Request request)
{
    if (!goesOn(request))
        return;
    request.asked = QDateTime::currentDateTimeUtc();
    m_helper.publishRepo(request.widget->repoPath(),
                         request.wanted.port,
                         request.wanted.protocol,
                         [this, request](const HelperClient::Result &result) {
                             if (!goesOn(request))
                                 return;
                             // The system's state decides: the answer may have come too late.
                             afterReading([this, request, result] { finish(request, result); });
                         });
}

void PublishCommand::finish(const Request &request, const HelperClient::Result &result)
{
    if (!goesOn(request))
        return;
    const QVector<Publication> publications = m_monitor.publicationsOf(request.wanted.path);
    const bool isServed
        = std::any_of(publications.cbegin(), publications.cend(), [&request](const Publication &publication) {
              return publication.protocol == request.wanted.protocol
                     && publication.repo.port == request.wanted.port
                     && publication.state == QLatin1String("active");
          });
    const JobFeedback::Trouble trouble = JobFeedback::troubleOf(result);
    if (!result.done && !isServed) {
        if (trouble.text.isEmpty())
            explainFailure(request);
        else
            endWaiting(request.widget, wordOfFailure(), trouble);
        return;
    }
    request.widget->publicationPanel()->claim(request.wanted.protocol, request.wanted.port);
    renewKeptPorts();
    if (request.widget == m_bench.tabs.current())
        request.widget->showPublication();
    endWaiting(request.widget, tr("Repository is published."), trouble);
    Q_EMIT published(request.widget);
}

void PublishCommand::explainFailure(const Request &request)
{
    QString log
        = request.wanted.protocol == HttpProtocol ? HttpServer::logFile(request.wanted.port) : QString();
    // An old log comes from an earlier server: the new server has written nothing.
    const auto read = [log, asked = request.asked] {
        const QFileInfo file(log);
        const bool isNew = asked.isValid() && file.exists() && file.lastModified() >= asked;
        return isNew ? LogTail::read(log) : QString();
    };
    runInBackground(this, read, [this, request, log](const QString &text) {
        if (!goesOn(request))
            return;
        constexpr int MostLines = 20;
        const QStringList lines = text.trimmed().split(QLatin1Char('\n'));
        const QString details
            = text.trimmed().isEmpty()
                  ? ServerText::whyNotStarted(request.wanted.protocol, request.wanted.port)
                  : tr("The end of the server's log %1:").arg(log) + QLatin1Char('\n')
                        + lines.mid(qMax(0, lines.size() - MostLines)).join(QLatin1Char('\n'));
        endWaiting(request.widget, wordOfFailure(), {tr("The repository is not published!"), details, {}});
    });
}

QString PublishCommand::wordOfFailure()
{
    // Without a bus, the state of the publication is unknown.
    return HelperClient::isReachable() ? tr("Repository is unpublished.") : QString();
}

// --- unpublishing ------------------------------------------------------------------------------------------------

void PublishCommand::unpublish(const Publication &publication, RepoWidget *tab, const Answer &answer)
{
    RepoWidget *widget = tab == nullptr || tab->repoPath().isEmpty() ? nullptr : tab;
    if (widget != nullptr && m_bench.tabs.isRunning(widget)) {
        m_bench.feedback.announce(
            tr("The repository %1 is busy. Unpublish it when that has ended.").arg(publication.repo.path));
        return;
    }
    m_bench.tabs.setWaiting(widget, true);
    m_bench.feedback.showWaiting(widget,
                                 tr("Waiting for the system to unpublish %1").arg(publication.repo.path));
    const auto end = [this, publication, answer, hadTab = widget != nullptr, guard = QPointer(widget)](
                         const HelperClient::Result &result) {
        if (!m_bench.prompts.isDismissed() && (!hadTab || !guard.isNull()))
            endUnpublishing(publication, guard, result, answer);
    };
    m_helper.unpublishRepo(
        publication.repo.port, publication.protocol, [this, end](const HelperClient::Result &result) {
            afterReading([end, result] { end(result); });
        });
}

void PublishCommand::endUnpublishing(const Publication &publication,
                                     RepoWidget *tab,
                                     const HelperClient::Result &result,
                                     const Answer &answer)
{
    const bool isOver = result.done && !isListed(publication);
    if (isOver)
        endWaiting(tab, tr("Repository is unpublished."), {});
    else if (!result.errorText.isEmpty())
        endWaiting(tab, QString(), JobFeedback::troubleOf(result));
    else
        endWaiting(tab,
                   QString(),
                   {tr("The repository is not unpublished!"),
                    result.done ? ServerText::whyNotStopped(publication.protocol, publication.repo.port)
                                : ServerText::whyRefused(),
                    {}});
    if (answer)
        answer(isOver);
}

void PublishCommand::endWaiting(RepoWidget *tab, const QString &message, const JobFeedback::Trouble &trouble)
{
    m_bench.feedback.endWaiting(tab, message, trouble);
    m_bench.tabs.setWaiting(tab, false);
}

bool PublishCommand::isListed(const Publication &publication) const
{
    const QVector<Publication> all = m_monitor.publications();
    return std::any_of(all.cbegin(), all.cend(), [&publication](const Publication &one) {
        return one.protocol == publication.protocol && one.repo.port == publication.repo.port;
    });
}
