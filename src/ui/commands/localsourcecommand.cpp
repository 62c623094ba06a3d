// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/localsourcecommand.h"

#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "publication/publicationaddresses.h"
#include "publication/publicationmonitor.h"
#include "server/sourcekey.h"
#include "signing/repositorykey.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/publicationpanel.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <algorithm>
#include <functional>
#include <iterator>

LocalSourceCommand::LocalSourceCommand(const Workbench &bench,
                                       PublicationMonitor &monitor,
                                       HelperClient &helper,
                                       QObject *parent)
    : QObject(parent)
    , m_bench(bench)
    , m_monitor(monitor)
    , m_helper(helper)
    , m_list(nullptr)
{
    connect(&m_list, &LocalSourcesWatch::changed, this, &LocalSourceCommand::changed);
}

// --- the lines of the list -----------------------------------------------------------------------------------------

QStringList LocalSourceCommand::linesOf(const RepoWidget &widget) const
{
    const QString canonicalPath = widget.repoShell()->canonicalPath();
    const PublicationSettings choice = widget.publicationPanel()->choice();
    ListedSources::Repository repository{
        {widget.repoPath(), canonicalPath}, {}, widget.publicationPanel()->sourceLine()};
    bool isChoiceFree = choice.protocol >= 0;
    const QVector<Publication> publications = m_monitor.publications();
    for (const Publication &publication : publications) {
        if (publication.repo.path == canonicalPath)
            repository.places += {publication.protocol, publication.port()};
        else if (publication.protocol == choice.protocol && publication.port() == choice.port)
            isChoiceFree = false;
    }
    if (isChoiceFree)
        repository.places += {choice.protocol, choice.port};
    return m_list.sources().linesOf(repository);
}

QStringList LocalSourceCommand::orphanedLines() const
{
    return m_monitor.isKnown() ? m_list.sources().linesWithoutService(m_monitor.publications())
                               : QStringList();
}

// --- adding --------------------------------------------------------------------------------------------------------

void LocalSourceCommand::add(RepoWidget *widget)
{
    if (!m_bench.tabs.isFree(widget))
        return;
    const RepoShell &shell = *widget->repoShell();
    const RepoInfo info = shell.repoInfo();
    const PublicationSettings choice = widget->publicationPanel()->choice();
    LocalSourceFacts facts;
    facts.offered = {choice.trusted,
                     choice.architectures,
                     choice.protocol,
                     choice.host.isEmpty() ? PublicationAddresses::loopback() : choice.host,
                     choice.port,
                     {},
                     info.codename,
                     info.components};
    facts.directory = shell.canonicalPath();
    facts.publications = m_monitor.publicationsOf(facts.directory);
    m_bench.tabs.setWaiting(widget, true);
    m_bench.feedback.showWaiting(widget, tr("Looking how apt of this machine can use the repository"));
    runInBackground(
        this,
        [facts, codename = info.codename] { return look(facts, codename); },
        [this, guard = QPointer<RepoWidget>(widget)](const Finding &finding) {
            if (!guard.isNull() && !m_bench.prompts.isDismissed())
                choose(guard, finding);
        });
}

LocalSourceCommand::Finding LocalSourceCommand::look(LocalSourceFacts facts, const QString &codename)
{
    facts.access = AptAccess::examine(facts.directory);
    facts.hasFtp = AptAccess::hasFtp();
    const RepositoryKey key = RepositoryKey::read(facts.directory, codename);
    if (!key.isGood)
        return {facts, {}};
    const QByteArray armor = RepositoryKey::publicKey(key.id).key;
    // The helper would refuse such a key, so it is not used.
    if (!SourceKey::isFingerprint(key.id) || SourceKey::fingerprint(armor) != key.id)
        return {facts, {}};
    facts.fingerprint = key.id;
    return {facts, armor};
}

void LocalSourceCommand::choose(RepoWidget *widget, const Finding &finding)
{
    const QPointer<RepoWidget> guard(widget);
    const auto giveUp = [this, guard] {
        if (guard.isNull() || m_bench.prompts.isDismissed())
            return;
        m_bench.feedback.endWaiting(guard, QString());
        m_bench.tabs.setWaiting(guard, false);
    };
    const std::optional<LocalSourceChoice> choice = LocalSourceChoice::of(finding.facts);
    if (!choice) {
        giveUp();
        widget->showPublication();
        m_bench.feedback.announce(
            finding.facts.hasFtp
                ? tr("Choose a server type, then add the repository once more.")
                : tr("Choose HTTP as the server type, then add the repository once more: apt of this machine "
                     "has no FTP."));
        widget->publicationPanel()->askServerType();
        return;
    }
    if (!agrees(*choice, finding.facts) || guard.isNull()) {
        giveUp();
        return;
    }
    m_bench.feedback.showWaiting(widget, tr("Waiting for the system to change the local sources list"));
    const auto answer = [this, guard](const HelperClient::Result &result) {
        if (guard.isNull() || m_bench.prompts.isDismissed())
            return;
        m_list.refresh();
        m_bench.feedback.endWaiting(guard,
                                    result.done ? tr("Repository is added to local sources list.")
                                                : QString(),
                                    JobFeedback::troubleOf(result));
        m_bench.tabs.setWaiting(guard, false);
    };
    m_helper.addLocalSource(choice->line.text(), finding.key, answer);
}

bool LocalSourceCommand::agrees(const LocalSourceChoice &choice, const LocalSourceFacts &facts)
{
    const QString title = tr("Local sources list");
    switch (choice.risk) {
    case LocalSourceChoice::NoRisk:
        return true;
    case LocalSourceChoice::OthersWrite:
        return m_bench.prompts.askCarefully(
                   title,
                   tr("The repository has no signature that can be checked, and other users of this machine "
                      "can change it. Do you "
                      "want "
                      "to add it all the same?"),
                   tr("As long as the line is in the list, they decide what is installed with the rights of "
                      "root. "
                      "Sign the repository, or see to it that nobody else may write in %1 and in the folders "
                      "above.")
                       .arg(facts.directory))
               == Prompts::Answer::Yes;
    case LocalSourceChoice::OthersServe:
        break;
    }
    QStringList about{
        tr("As long as the line is in the list, whoever gets hold of the port %1 on this machine decides "
           "what is "
           "installed with the rights of root; any user can when the repository is not published. Sign the "
           "repository, or keep it in a folder of a local disk.")
            .arg(choice.line.port)};
    if (facts.publications.isEmpty())
        about << tr("The repository is not published now.");
    about << choice.line.text();
    return m_bench.prompts.askCarefully(
               title,
               tr("The repository has no signature that can be checked, and apt of this "
                  "machine can only get it over the "
                  "network. Do you want to add it all the same?"),
               about.join(QLatin1String("\n\n")))
           == Prompts::Answer::Yes;
}

// --- removing ------------------------------------------------------------------------------------------------------

void LocalSourceCommand::remove(RepoWidget *widget)
{
    if (m_bench.tabs.isFree(widget))
        removeLines(linesOf(*widget), widget);
}

void LocalSourceCommand::removeLines(const QStringList &lines, RepoWidget *tab, const Answer &answer)
{
    const auto byHand = [](const QString &line) { return !ListedSources::isOurs(line); };
    Removal removal{lines, {}, tab, answer};
    const auto end = std::stable_partition(removal.ours.begin(), removal.ours.end(), std::not_fn(byHand));
    std::copy(end, removal.ours.end(), std::back_inserter(removal.byHand));
    removal.ours.erase(end, removal.ours.end());
    if (removal.ours.isEmpty()) {
        tellWhatStays(removal);
        return;
    }
    m_bench.tabs.setWaiting(tab, true);
    m_bench.feedback.showWaiting(tab, tr("Waiting for the system to change the local sources list"));
    removeNext(removal);
}

void LocalSourceCommand::removeNext(Removal removal)
{
    const QString line = removal.ours.takeFirst();
    m_helper.removeLocalSource(line, [this, removal](const HelperClient::Result &result) {
        if (m_bench.prompts.isDismissed())
            return;
        if (result.done && !removal.ours.isEmpty())
            removeNext(removal);
        else
            endRemoval(removal, result);
    });
}

void LocalSourceCommand::endRemoval(const Removal &removal, const HelperClient::Result &result)
{
    m_list.refresh();
    m_bench.feedback.endWaiting(removal.tab,
                                result.done ? tr("Repository is removed from local sources list.")
                                            : QString(),
                                JobFeedback::troubleOf(result));
    m_bench.tabs.setWaiting(removal.tab, false);
    if (result.done)
        tellWhatStays(removal);
    else if (removal.answer)
        removal.answer(false);
}

void LocalSourceCommand::tellWhatStays(const Removal &removal)
{
    if (!removal.byHand.isEmpty())
        m_bench.feedback.error(tr("The local sources list still has a line of this repository, which was "
                                  "changed by hand. Remove "
                                  "it with an editor."),
                               removal.byHand.join(QLatin1Char('\n')),
                               RepoEnums::WARNING);
    if (removal.answer)
        removal.answer(true);
}

std::optional<QStringList> LocalSourceCommand::askForLinesTo(const Publication &publication)
{
    const QStringList lines = m_list.sources().linesTo(publication);
    if (lines.isEmpty())
        return lines;
    switch (
        m_bench.prompts.ask(tr("Local sources list"),
                            tr("This machine's own apt uses the publication that ends. Do you want to remove "
                               "its line from the local "
                               "sources list?"),
                            lines.join(QLatin1Char('\n')) + QLatin1String("\n\n")
                                + tr("If the line stays, apt reports an error at each update, and with "
                                     "trusted=yes whoever takes the "
                                     "port decides what is installed with the rights of root."))) {
    case Prompts::Answer::Yes:
        return lines;
    case Prompts::Answer::No:
        return QStringList();
    case Prompts::Answer::Dismissed:
        break;
    }
    return std::nullopt;
}
