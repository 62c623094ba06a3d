// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/publishedreposdialog.h"

#include "platform/ui/windowgeometry.h"
#include "publication/publicationaddresses.h"
#include "publication/publicationsettings.h"
#include "server/httpserver.h"
#include "ui/dialogs/orphanedlines.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/publicationtext.h"
#include "ui/dialogs/publishedreposmodel.h"
#include "ui/widgets/logtail.h"
#include "ui/widgets/tablelook.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

PublishedReposDialog::PublishedReposDialog(PublicationMonitor &monitor, Prompts &prompts, QWidget *parent)
    : QDialog(parent)
    , m_monitor(monitor)
    , m_prompts(prompts)
    , m_model(new PublishedReposModel(this))
    , m_sorted(new QSortFilterProxyModel(this))
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_view(new QTreeView(m_splitter))
    , m_emptyLabel(new QLabel(m_view->viewport()))
    , m_orphanedLines(new OrphanedLines(this))
    , m_logLabel(new QLabel(this))
    , m_log(new QPlainTextEdit(this))
    , m_tail(new LogTail(this))
    , m_host(PublicationAddresses::loopback())
{
    setWindowTitle(tr("Published repositories"));
    buildView();
    m_splitter->addWidget(logArea());
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_splitter);
    layout->addWidget(m_orphanedLines);
    buildActions();
    m_prompts.offerHelp(*this);

    connect(
        m_orphanedLines, &OrphanedLines::removalRequested, this, &PublishedReposDialog::lineRemovalRequested);
    connect(m_tail, &LogTail::changed, this, &PublishedReposDialog::showLog);
    connect(&m_monitor, &PublicationMonitor::changed, this, &PublishedReposDialog::showSnapshot);
    connect(&m_monitor, &PublicationMonitor::refreshed, this, &PublishedReposDialog::showSnapshot);
    auto *addresses = new PublicationAddresses(this);
    connect(
        addresses, &PublicationAddresses::found, this, [this](const QStringList &, const QString &preferred) {
            if (!preferred.isEmpty())
                m_host = preferred;
            readHosts();
        });
    addresses->start();
    constexpr QSize Characters(110, 30);
    const QSize wished(Characters.width() * fontMetrics().averageCharWidth(),
                       Characters.height() * fontMetrics().lineSpacing());
    QRect place(QPoint(), wished);
    place.moveCenter(parent->window()->frameGeometry().center());
    veltRestoreGeometry(this, *std::make_unique<QSettings>(), place, false);
}

PublishedReposDialog::~PublishedReposDialog() = default;

// --- building ----------------------------------------------------------------------------------------------------

void PublishedReposDialog::buildView()
{
    constexpr int Rows = 4;
    constexpr int AddressWidth = 30; // characters
    m_sorted->setSourceModel(m_model);
    m_sorted->setSortRole(PublishedReposModel::SortRole);
    m_sorted->setSortLocaleAware(true);
    m_view->setObjectName(QStringLiteral("m_publishedReposView"));
    m_view->setModel(m_sorted);
    TableLook::apply(*m_view, windowTitle());
    m_view->setTextElideMode(Qt::ElideMiddle);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_view->setSortingEnabled(true);
    m_view->sortByColumn(PublishedReposModel::RepositoryColumn, Qt::AscendingOrder);
    const int character = fontMetrics().averageCharWidth();
    QHeaderView *header = m_view->header();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionResizeMode(PublishedReposModel::TypeColumn, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(PublishedReposModel::PortColumn, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(PublishedReposModel::StateColumn, QHeaderView::ResizeToContents);
    // Paths are the longest texts, so their column gets the remaining width.
    header->setStretchLastSection(false);
    header->setSectionResizeMode(PublishedReposModel::RepositoryColumn, QHeaderView::Stretch);
    header->resizeSection(PublishedReposModel::AddressColumn, AddressWidth * character);
    m_view->setMinimumHeight(Rows * fontMetrics().lineSpacing() * 3 / 2);
    TableLook::placeOver(*m_view, m_emptyLabel);
    connect(m_view->selectionModel(),
            &QItemSelectionModel::currentRowChanged,
            this,
            &PublishedReposDialog::updateForCurrent);
    connect(m_view, &QTreeView::activated, this, &PublishedReposDialog::openCurrent);
}

QWidget *PublishedReposDialog::logArea()
{
    constexpr int MostLines = 5000;
    constexpr int Rows = 3;
    auto *area = new QWidget(m_splitter);
    m_log->setObjectName(QStringLiteral("m_serverLog"));
    m_log->setReadOnly(true);
    m_log->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_log->setTabChangesFocus(true);
    m_log->setMaximumBlockCount(MostLines);
    m_log->setMinimumHeight(Rows * fontMetrics().lineSpacing());
    m_logLabel->setText(tr("&Log of the server:"));
    m_logLabel->setBuddy(m_log);
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_logLabel);
    layout->addWidget(m_log);
    return area;
}

QAction *
PublishedReposDialog::action(const QString &text, const char *icon, const QKeySequence &key, const char *name)
{
    auto *made = new QAction(QIcon::fromTheme(QLatin1String(icon)), text, m_view);
    made->setObjectName(QLatin1String(name));
    made->setShortcut(key);
    made->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(made);
    return made;
}

void PublishedReposDialog::buildActions()
{
    m_openAction = action(tr("&Open repository"), "document-open", {}, "m_openPublishedAction");
    m_copyAction = action(tr("&Copy address"), "edit-copy", QKeySequence::Copy, "m_copyAddressAction");
    m_unpublishAction
        = action(tr("&Unpublish"), "media-playback-stop", QKeySequence::Delete, "m_unpublishThisAction");
    connect(m_openAction, &QAction::triggered, this, &PublishedReposDialog::openCurrent);
    connect(m_copyAction, &QAction::triggered, this, &PublishedReposDialog::copyAddress);
    connect(m_unpublishAction, &QAction::triggered, this, &PublishedReposDialog::unpublishCurrent);

    auto *box = new QDialogButtonBox(QDialogButtonBox::Close, this);
    box->button(QDialogButtonBox::Close)->setAutoDefault(false);
    for (QAction *command : {m_openAction, m_copyAction, m_unpublishAction}) {
        QPushButton *button = box->addButton(command->text(), QDialogButtonBox::ActionRole);
        button->setIcon(command->icon());
        // Enter in the table opens the current repository.
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, command, &QAction::trigger);
        connect(command, &QAction::changed, button, [command, button] {
            button->setEnabled(command->isEnabled());
        });
    }
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(box);
}

// --- the snapshot -------------------------------------------------------------------------------------------------

void PublishedReposDialog::showEvent(QShowEvent *event)
{
    m_monitor.setLive(true);
    readHosts();
    showSnapshot();
    m_view->setFocus();
    QDialog::showEvent(event);
}

void PublishedReposDialog::hideEvent(QHideEvent *event)
{
    m_monitor.setLive(false);
    m_tail->setFile(QString());
    QSettings settings;
    veltSaveGeometry(this, settings, false);
    QDialog::hideEvent(event);
}

void PublishedReposDialog::showOrphanedLines(const QStringList &lines)
{
    m_orphanedLines->setLines(lines);
}

void PublishedReposDialog::readHosts()
{
    const QSettings settings;
    QHash<int, QString> hosts;
    const QVector<Publication> publications = m_monitor.publications();
    for (const Publication &publication : publications) {
        const auto kept = PublicationSettings::load(settings, publication.repo.port);
        if (kept.repoPath == publication.repo.path && PublicationAddresses::isAddress(kept.host))
            hosts.insert(publication.repo.port, kept.host);
    }
    m_model->setHosts(m_host, hosts);
}

void PublishedReposDialog::showSnapshot()
{
    if (!isVisible() && !m_monitor.isKnown())
        return;
    const QVector<Publication> publications = m_monitor.publications();
    const bool grown = publications.size() > m_model->rowCount();
    m_model->setPublications(publications);
    if (grown)
        readHosts();
    m_emptyLabel->setText(m_monitor.isKnown() ? tr("No repository is published from this machine.")
                                              : tr("Asking the system what is published..."));
    m_emptyLabel->setVisible(publications.isEmpty());
    if (!m_view->currentIndex().isValid() && m_sorted->rowCount() > 0)
        m_view->setCurrentIndex(m_sorted->index(0, 0));
    updateForCurrent();
}

int PublishedReposDialog::currentRow() const
{
    return m_sorted->mapToSource(m_view->currentIndex()).row();
}

void PublishedReposDialog::updateForCurrent()
{
    const int row = currentRow();
    for (QAction *command : {m_openAction, m_copyAction, m_unpublishAction})
        command->setEnabled(row >= 0);
    QString file;
    QString word;
    if (row >= 0) {
        const Publication &publication = m_model->publication(row);
        if (publication.protocol == HttpProtocol) {
            file = HttpServer::logFile(publication.repo.port);
            word = tr("The log %1 is empty or cannot be read.").arg(file);
        } else {
            word = tr("The FTP server keeps no log of its own for the repository.");
        }
    }
    m_log->setPlaceholderText(word);
    m_tail->setFile(isVisible() ? file : QString());
}

void PublishedReposDialog::showLog(const QString &text)
{
    // A user who has scrolled up is reading, so the position stays.
    QScrollBar *bar = m_log->verticalScrollBar();
    const bool follows = bar->value() == bar->maximum();
    const int place = bar->value();
    m_log->setPlainText(text.trimmed());
    bar->setValue(follows ? bar->maximum() : place);
}

// --- commands ----------------------------------------------------------------------------------------------------

void PublishedReposDialog::openCurrent()
{
    if (currentRow() >= 0)
        Q_EMIT openRequested(m_model->publication(currentRow()).repo.path);
}

void PublishedReposDialog::copyAddress()
{
    if (currentRow() < 0)
        return;
    QGuiApplication::clipboard()->setText(m_model->address(currentRow()));
    Q_EMIT addressCopied();
}

void PublishedReposDialog::unpublishCurrent()
{
    if (currentRow() < 0)
        return;
    const Publication publication = m_model->publication(currentRow());
    if (m_prompts.ask(tr("Unpublish confirmation"),
                      tr("Do you want to unpublish the repository %1?").arg(publication.repo.path),
                      tr("Clients that use it get errors until it is published again."),
                      this)
        == Prompts::Answer::Yes)
        Q_EMIT unpublishRequested(publication);
}
