// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/contents/packagecontentsdialog.h"

#include "core/packageinfo.h"
#include "platform/ui/windowgeometry.h"
#include "ui/contents/filelistmodel.h"
#include "ui/contents/textpage.h"
#include "ui/widgets/mnemonics.h"
#include "ui/widgets/tablelook.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTreeView>
#include <QVBoxLayout>

PackageContentsDialog::PackageContentsDialog(const PackageInfo &package, QWidget *parent)
    : QDialog(parent)
    , m_search(new QLineEdit(this))
    , m_state(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_tabs(new QTabWidget(this))
    , m_model(new FileListModel(this))
    , m_files(new QTreeView(m_tabs))
    , m_changelog(new TextPage(tr("Changelog"), m_tabs))
    , m_copyright(new TextPage(tr("Copyright"), m_tabs))
    , m_controlNames(new QListWidget(m_tabs))
    , m_controlText(new TextPage(tr("Control files"), m_tabs))
{
    setWindowTitle(tr("Contents of %1").arg(package.name));
    setSizeGripEnabled(true);
    m_search->setObjectName(QStringLiteral("m_contentsSearchLine"));
    m_search->setPlaceholderText(tr("Search in this page"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_state->setObjectName(QStringLiteral("m_contentsStateLabel"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    buildPages();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    // Return goes to the next place that was found, and must not close the window.
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_state);
    layout->addWidget(m_progress);
    layout->addWidget(buttons);
    Mnemonics::markForm(this);
    connect(m_search, &QLineEdit::textChanged, this, &PackageContentsDialog::search);
    connect(m_tabs, &QTabWidget::currentChanged, this, &PackageContentsDialog::search);
    const auto *find = new QShortcut(QKeySequence(QKeySequence::Find), this);
    connect(find, &QShortcut::activated, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    constexpr QSize Characters(100, 30);
    const QSize wished(Characters.width() * fontMetrics().averageCharWidth(),
                       Characters.height() * fontMetrics().lineSpacing());
    const QRect available = parent->screen()->availableGeometry();
    QRect place(QPoint(), wished.boundedTo(available.size() * 9 / 10));
    place.moveCenter(parent->geometry().center());
    QSettings settings;
    veltRestoreGeometry(this, settings, place, false);
    m_files->setColumnWidth(FileListModel::Path, width() * 13 / 20);
    m_files->setColumnWidth(FileListModel::Size, width() * 3 / 20);
    m_search->setFocus();
    read(package);
}

void PackageContentsDialog::buildPages()
{
    m_tabs->setObjectName(QStringLiteral("m_contentsTabs"));
    m_files->setObjectName(QStringLiteral("m_contentsView"));
    m_files->setModel(m_model);
    TableLook::apply(*m_files, tr("Files"));
    m_files->setUniformRowHeights(true);
    m_files->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto *copy = new QAction(QIcon::fromTheme(QStringLiteral("edit-copy")), tr("Copy"), m_files);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    m_files->addAction(copy);
    m_files->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy, &QAction::triggered, this, [this] {
        QGuiApplication::clipboard()->setText(m_model->pathsOf(m_files->selectionModel()->selectedRows()));
    });
    m_controlNames->setObjectName(QStringLiteral("m_controlNamesList"));
    m_controlNames->setAccessibleName(tr("Control files"));
    connect(m_controlNames, &QListWidget::currentRowChanged, this, &PackageContentsDialog::showControl);
    auto *control = new QSplitter(m_tabs);
    control->addWidget(m_controlNames);
    control->addWidget(m_controlText);
    control->setChildrenCollapsible(false);
    control->setStretchFactor(0, 1);
    control->setStretchFactor(1, 4);
    m_tabs->addTab(m_files, tr("Files"));
    m_tabs->addTab(m_changelog, tr("Changelog"));
    m_tabs->addTab(m_copyright, tr("Copyright"));
    m_tabs->addTab(control, tr("Control files"));
}

void PackageContentsDialog::done(int result)
{
    m_query.stop();
    QSettings settings;
    veltSaveGeometry(this, settings, false);
    QDialog::done(result);
}

// --- reading -------------------------------------------------------------------------------------------------------

void PackageContentsDialog::read(const PackageInfo &package)
{
    const QString fileName = package.filePath();
    m_state->setText(tr("Reading %1...").arg(fileName));
    const auto work = [fileName, name = package.name](const StopRequest &stopped) {
        return PackageContents::of(fileName, name, stopped);
    };
    m_query.ask(this, work, [this, fileName](const PackageContents &contents) {
        m_progress->hide();
        if (contents.isRead)
            showContents(contents);
        else
            m_state->setText(tr("The file %1 cannot be read, or it is damaged.").arg(fileName));
    });
}

void PackageContentsDialog::showContents(const PackageContents &contents)
{
    m_contents = contents;
    m_model->setFiles(contents.files);
    m_files->setCurrentIndex(m_model->index(0, 0));
    const auto show = [&](TextPage *page, const PackageContents::Text &text, const QString &reason) {
        if (!text.path.isEmpty())
            page->setText(text);
        else if (!contents.otherPackage.isEmpty())
            page->setReason(
                tr("The documentation of this package is in the package %1.").arg(contents.otherPackage));
        else
            page->setReason(reason);
    };
    show(m_changelog, contents.changelog, tr("The package has no changelog."));
    show(m_copyright, contents.copyright, tr("The package has no file about its copyright."));
    for (const PackageContents::Text &text : contents.control)
        m_controlNames->addItem(text.path);
    m_controlNames->setCurrentRow(0);
    search();
}

void PackageContentsDialog::showControl(int row)
{
    if (row >= 0 && row < m_contents.control.size())
        m_controlText->setText(m_contents.control.at(row));
    if (textInFront() == m_controlText)
        search();
}

// --- searching -----------------------------------------------------------------------------------------------------

TextPage *PackageContentsDialog::textInFront() const
{
    switch (m_tabs->currentIndex()) {
    case 0:
        return nullptr;
    case 1:
        return m_changelog;
    case 2:
        return m_copyright;
    default:
        return m_controlText;
    }
}

void PackageContentsDialog::search()
{
    const QString text = m_search->text();
    QString found;
    if (TextPage *page = textInFront()) {
        const int places = page->search(text);
        if (!text.isEmpty())
            found = tr("Found %n time(s)", nullptr, places);
    } else {
        m_model->search(text);
        const QLocale locale;
        found = tr("%1 of %2 files")
                    .arg(locale.toString(m_model->rowCount()), locale.toString(m_model->fileCount()));
    }
    // Until the file is read, the line tells that it is being read; and what went wrong stays.
    if (!m_contents.isRead)
        return;
    if (m_contents.isCut)
        found += QLatin1Char('\n') + tr("The package is very large. Not all of it was read.");
    m_state->setText(found);
}

bool PackageContentsDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    TextPage *page = textInFront();
    if (isReturn && page != nullptr)
        page->searchAgain(key->modifiers().testFlag(Qt::ShiftModifier));
    else if (page == nullptr && (isReturn || key->key() == Qt::Key_Down))
        m_files->setFocus();
    else if (key->key() == Qt::Key_Down)
        page->focusText();
    else
        return QDialog::eventFilter(watched, event);
    return true;
}
