// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/publicationcommands.h"

#include "engine/reposhell.h"
#include "ui/commands/localsourcecommand.h"
#include "ui/commands/publishcommand.h"
#include "ui/commands/repositorycommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/publishedreposdialog.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/publicationpanel.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/tooltiptext.h"

#include "ui_mainwindow.h"

#include <QSettings>

#include <algorithm>

PublicationCommands::PublicationCommands(Ui::MainWindow &ui,
                                         const Workbench &bench,
                                         RepositoryCommands &repositories,
                                         PublicationMonitor &monitor,
                                         QWidget *window)
    : QObject(window)
    , m_ui(ui)
    , m_monitor(monitor)
    , m_bench(bench)
    , m_repositories(repositories)
    , m_window(window)
    , m_publish(new PublishCommand(bench, monitor, m_helper, this))
    , m_sources(new LocalSourceCommand(bench, monitor, m_helper, this))
    , m_publishToolTip(ui.m_publishRepoAction->toolTip())
{
    // The action has no meaning in this window.
    m_ui.actionView->setVisible(false);
    connectActions();
    connect(&m_bench.tabs, &RepoTabs::created, this, &PublicationCommands::attach);
    connect(&m_bench.tabs, &RepoTabs::listChanged, this, &PublicationCommands::showSnapshot);
    connect(&m_monitor, &PublicationMonitor::changed, this, &PublicationCommands::showSnapshot);
    connect(&m_repositories, &RepositoryCommands::removalsEnded, this, &PublicationCommands::showSnapshot);
    connect(m_sources, &LocalSourceCommand::changed, this, &PublicationCommands::showSnapshot);
    connect(m_publish, &PublishCommand::published, this, [this] {
        m_hasPublished = true;
        updateActions();
    });
    m_repositories.setPublishing(
        {[this](const QString &path) { return isPublished(path); },
         [this](const QString &path, const auto &answer) { unpublishAll(path, answer); },
         [this](const RepoWidget &widget) { return !m_sources->linesOf(widget).isEmpty(); }});
}

void PublicationCommands::connectActions()
{
    const auto command = [this](QAction *action, auto function) {
        connect(action, &QAction::triggered, this, [function] { function(); });
    };
    command(m_ui.m_publishRepoAction, [this] { publish(m_bench.tabs.current()); });
    command(m_ui.m_unpublishRepoAction, [this] { unpublish(m_bench.tabs.current()); });
    command(m_ui.m_addSrcListAction, [this] { m_sources->add(m_bench.tabs.current()); });
    command(m_ui.m_removeSrcListAction, [this] { m_sources->remove(m_bench.tabs.current()); });
    command(m_ui.m_showPublishedReposAction, [this] { showPublishedRepos(); });
}

void PublicationCommands::attach(RepoWidget *widget)
{
    PublicationPanel *panel = widget->publicationPanel();
    connect(panel, &PublicationPanel::publishTriggered, this, [this, widget] { publish(widget); });
    connect(panel, &PublicationPanel::unpublishTriggered, this, [this, widget] { unpublish(widget); });
    connect(widget, &RepoWidget::newRepoPath, this, [this, widget] { showSnapshotIn(widget); });
    connect(panel, &PublicationPanel::choiceChanged, this, [this, widget] { updateCommands(widget); });
    connect(panel, &PublicationPanel::serverTypeChosen, this, [this, panel] {
        const PublicationSettings choice = panel->choice();
        panel->setPort(
            PublicationRules::proposedPort(choice.protocol, choice.port, m_monitor.listeningPorts()));
    });
    connect(&m_bench.tabs, &RepoTabs::moved, widget, [this, widget](const RepoWidget *moved) {
        if (moved == widget)
            showSnapshotIn(widget);
    });
}

// --- what can be done --------------------------------------------------------------------------------------------

void PublicationCommands::showSnapshot()
{
    // The change may also have changed the kept ports.
    m_publish->renewKeptPorts();
    const QList<RepoWidget *> widgets = m_bench.tabs.shown();
    for (RepoWidget *widget : widgets)
        showSnapshotIn(widget);
    if (widgets.isEmpty())
        updateCommands(nullptr);
    if (!m_dialog.isNull())
        m_dialog->showOrphanedLines(m_sources->orphanedLines());
}

void PublicationCommands::showSnapshotIn(RepoWidget *widget)
{
    const QString canonicalPath = widget->repoShell()->canonicalPath();
    const QVector<Publication> publications
        = canonicalPath.isEmpty() ? QVector<Publication>() : m_monitor.publicationsOf(canonicalPath);
    const bool isServed = std::any_of(publications.cbegin(), publications.cend(), [](const Publication &one) {
        return one.state == QLatin1String("active");
    });
    m_bench.tabs.setPublished(widget, isServed);
    widget->publicationPanel()->showPublications(m_monitor.isKnown(), publications);
    updateCommands(widget);
}

void PublicationCommands::updateActions()
{
    updateCommands(m_bench.tabs.current());
}

PublicationRules PublicationCommands::judge(const RepoWidget &widget) const
{
    // The ports of other programs are looked up only before publishing: no signal tells when a port is released.
    return PublicationRules::judge(m_publish->requestOf(widget), m_monitor.publications(), {});
}

std::optional<Publication> PublicationCommands::publicationToEnd(const PublicationRules &rules)
{
    if (rules.own)
        return rules.own;
    return rules.elsewhere.size() == 1 ? std::optional<Publication>(rules.elsewhere.first()) : std::nullopt;
}

void PublicationCommands::updateCommands(RepoWidget *widget)
{
    const bool isFree = m_bench.tabs.isFree(widget) && m_monitor.isKnown();
    bool canPublish = isFree;
    bool canUnpublish = false;
    QString reason;
    if (isFree) {
        const PublicationRules rules = judge(*widget);
        canUnpublish = publicationToEnd(rules).has_value();
        // The command is enabled without a server type and then asks for it.
        canPublish = rules.mayPublish() || m_publish->requestOf(*widget).protocol < 0;
        if (!canPublish)
            reason = rules.reason;
        // After a publication from this window, the words are different.
        if (m_hasPublished && rules.obstacle == PublicationRules::Obstacle::OtherRepository)
            reason = tr("Another repo already published");
    }
    const QStringList listed = widget != nullptr ? m_sources->linesOf(*widget) : QStringList();
    if (widget != nullptr) {
        widget->publicationPanel()->setCommands(canPublish, canUnpublish, reason);
        const QStringList orphaned = m_sources->orphanedLines();
        widget->publicationPanel()->setOrphaned(
            std::any_of(listed.cbegin(), listed.cend(), [&orphaned](const QString &line) {
                return orphaned.contains(line);
            }));
    }
    if (widget != m_bench.tabs.current())
        return;
    m_ui.m_publishRepoAction->setEnabled(canPublish);
    m_ui.m_publishRepoAction->setToolTip(reason.isEmpty() ? m_publishToolTip : toolTipText(reason));
    m_ui.m_unpublishRepoAction->setEnabled(canUnpublish);
    m_ui.m_addSrcListAction->setEnabled(isFree && listed.isEmpty());
    m_ui.m_removeSrcListAction->setEnabled(isFree && !listed.isEmpty());
}

bool PublicationCommands::isPublished(const QString &path) const
{
    // Before the first answer of the system, the stored settings decide.
    const QString canonicalPath = m_repositories.canonicalPathOf(path);
    return m_monitor.isKnown() ? !m_monitor.publicationsOf(canonicalPath).isEmpty()
                               : PublicationSettings::find(QSettings(), {path, canonicalPath}).has_value();
}

// --- publishing --------------------------------------------------------------------------------------------------

QString PublicationCommands::publishUnlessRefused(RepoWidget *widget)
{
    if (m_publish->requestOf(*widget).protocol < 0)
        return tr("No server type is chosen on its page.");
    const PublicationRules rules = judge(*widget);
    if (rules.mayPublish())
        m_publish->publish(widget);
    return rules.reason;
}

void PublicationCommands::publish(RepoWidget *widget)
{
    if (m_bench.tabs.isFree(widget))
        m_publish->publish(widget);
}

void PublicationCommands::unpublish(RepoWidget *widget)
{
    if (!m_bench.tabs.isFree(widget))
        return;
    if (const std::optional<Publication> publication = publicationToEnd(judge(*widget)))
        end(*publication, widget);
}

void PublicationCommands::end(const Publication &publication,
                              RepoWidget *tab,
                              const std::function<void(bool)> &answer)
{
    if (publication.isForeign) {
        m_bench.feedback.error(
            tr("The repository is not unpublished!"),
            tr("The file /etc/vsftpd.conf was written by somebody else, or lets other users in, too. The FTP "
               "server may serve more than the repository and is not stopped. The administrator can stop it: "
               "systemctl disable --now vsftpd"),
            RepoEnums::WARNING);
        if (answer)
            answer(false);
        return;
    }
    const QPointer<RepoWidget> guard(tab);
    const bool hadTab = tab != nullptr;
    const std::optional<QStringList> lines
        = hadTab && m_bench.tabs.isRunning(tab) ? QStringList() : m_sources->askForLinesTo(publication);
    if (!lines || (hadTab && guard.isNull()))
        return;
    if (lines->isEmpty()) {
        m_publish->unpublish(publication, tab, answer);
        return;
    }
    // The lines go before the port becomes free: a question for a password can stay open for a long time.
    m_sources->removeLines(*lines, tab, [this, publication, guard, answer](bool done) {
        if (done)
            m_publish->unpublish(publication, guard, answer);
        else if (answer)
            answer(false);
    });
}

void PublicationCommands::unpublishAll(const QString &path, const std::function<void(bool)> &answer)
{
    const QString canonicalPath = m_repositories.canonicalPathOf(path);
    const QVector<Publication> publications = m_monitor.publicationsOf(canonicalPath);
    if (publications.isEmpty()) {
        answer(true);
        return;
    }
    end(publications.first(),
        m_bench.tabs.find(path),
        [this, path, canonicalPath, answer, count = publications.size()](bool done) {
            const bool fewer = m_monitor.publicationsOf(canonicalPath).size() < count;
            if (done && fewer)
                unpublishAll(path, answer);
            else
                answer(false);
        });
}

void PublicationCommands::showPublishedRepos()
{
    if (m_dialog.isNull()) {
        m_dialog = new PublishedReposDialog(m_monitor, m_bench.prompts, m_window);
        connect(
            m_dialog, &PublishedReposDialog::openRequested, &m_repositories, &RepositoryCommands::openRepo);
        connect(m_dialog,
                &PublishedReposDialog::unpublishRequested,
                this,
                [this](const Publication &publication) {
                    end(publication, m_bench.tabs.find(publication.repo.path));
                });
        connect(m_dialog, &PublishedReposDialog::lineRemovalRequested, this, [this](const QString &line) {
            m_sources->removeLines({line}, nullptr);
        });
        m_dialog->showOrphanedLines(m_sources->orphanedLines());
        connect(m_dialog, &PublishedReposDialog::addressCopied, this, [this] {
            m_bench.feedback.announce(tr("Address is copied to clipboard"));
        });
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}
