// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/helpwindow.h"

#include "core/countof.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolBar>
#include <QVBoxLayout>

HelpWindow::HelpWindow()
    : m_browser(new QTextBrowser(this))
    , m_searchLine(new QLineEdit(this))
    , m_message(new QLabel(this))
{
    setWindowTitle(tr("Help"));
    // A small screen must also have room for a panel and the window frame.
    resize(QSize(960, 660).boundedTo(screen()->availableSize() - QSize(40, 60)));
    build();
    // Esc and the close button only hide a dialog. A hidden help window is never shown again.
    connect(this, &QDialog::finished, this, &QObject::deleteLater);
}

void HelpWindow::build()
{
    auto *bar = new QToolBar(this);
    const auto add = [this, bar](const QString &text, const char *icon, const QList<QKeySequence> &keys) {
        auto *action = new QAction(QIcon::fromTheme(QLatin1String(icon)), text, this);
        action->setShortcuts(keys);
        action->setToolTip(
            QStringLiteral("%1 (%2)").arg(text, keys.first().toString(QKeySequence::NativeText)));
        bar->addAction(action);
        return action;
    };
    const auto key = [](const char *name) { return QKeySequence(QLatin1String(name)); };
    QAction *back = add(tr("Back"), "go-previous", {key("Alt+Left")});
    QAction *forward = add(tr("Forward"), "go-next", {key("Alt+Right")});
    QAction *contents = add(tr("Contents"), "go-home", {key("Alt+Home")});
    bar->addSeparator();
    bar->addWidget(m_searchLine);
    QAction *previous = add(tr("Find previous"), "go-up", {key("Shift+F3")});
    QAction *next = add(tr("Find next"), "go-down", {key("F3")});
    bar->addSeparator();
    QAction *larger = add(tr("Larger text"), "zoom-in", {key("Ctrl++"), key("Ctrl+=")});
    QAction *smaller = add(tr("Smaller text"), "zoom-out", {key("Ctrl+-")});
    auto *search = new QAction(this);
    search->setShortcut(QKeySequence::Find);
    addAction(search);

    m_browser->setOpenExternalLinks(true);
    m_browser->setAccessibleName(windowTitle());
    m_searchLine->setPlaceholderText(tr("Find in the help"));
    m_searchLine->setAccessibleName(m_searchLine->placeholderText());
    m_searchLine->setClearButtonEnabled(true);
    m_message->setTextFormat(Qt::PlainText);
    m_message->hide();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_browser, 1);
    layout->addWidget(m_message);
    m_browser->setFocus();

    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::showTitle);
    connect(back, &QAction::triggered, m_browser, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
    connect(contents, &QAction::triggered, this, [this] { m_browser->setSource(m_contents); });
    connect(larger, &QAction::triggered, m_browser, [this] { m_browser->zoomIn(); });
    connect(smaller, &QAction::triggered, m_browser, [this] { m_browser->zoomOut(); });
    connect(previous, &QAction::triggered, this, [this] { find(Direction::Backward); });
    connect(next, &QAction::triggered, this, [this] { find(Direction::Forward); });
    connect(m_searchLine, &QLineEdit::returnPressed, this, [this] { find(Direction::Forward); });
    connect(m_searchLine, &QLineEdit::textEdited, m_message, &QWidget::hide);
    connect(search, &QAction::triggered, this, [this] {
        m_searchLine->setFocus(Qt::ShortcutFocusReason);
        m_searchLine->selectAll();
    });
}

void HelpWindow::showPage(const QUrl &page)
{
    m_contents = page.resolved(QUrl(QStringLiteral("index.html")));
    m_browser->setSource(page);
}

void HelpWindow::moveTo(QWidget *owner)
{
    if (owner == nullptr || owner == parentWidget())
        return;
    const QRect place = geometry();
    const bool placed = isVisible();
    setParent(owner, windowFlags());
    if (placed) {
        setGeometry(place);
        show();
    }
    auto *dialog = qobject_cast<QDialog *>(owner);
    QWidget *below = owner->parentWidget();
    if (dialog == nullptr || below == nullptr)
        return;
    connect(dialog, &QDialog::finished, this, [this, dialog, below] {
        if (parentWidget() == dialog && isVisible())
            moveTo(below->window());
    });
}

void HelpWindow::showTitle()
{
    const QString title = m_browser->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("Help: %1").arg(title));
    m_message->hide();
}

// --- search ------------------------------------------------------------------------------------------------------

void HelpWindow::find(Direction direction)
{
    if (m_searchLine->text().isEmpty()) {
        m_searchLine->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    m_message->hide();
    if (findOnPage(direction, false))
        return;
    const QUrl page = nextPageWithText(direction);
    if (page.isEmpty()) {
        m_message->setText(tr("The help does not hold \"%1\".").arg(m_searchLine->text()));
        m_message->show();
        return;
    }
    if (page != m_browser->source().adjusted(QUrl::RemoveFragment))
        m_browser->setSource(page);
    findOnPage(direction, true);
}

bool HelpWindow::findOnPage(Direction direction, bool fromEdge)
{
    const bool backward = direction == Direction::Backward;
    if (fromEdge) {
        QTextCursor cursor = m_browser->textCursor();
        cursor.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        m_browser->setTextCursor(cursor);
    }
    return m_browser->find(m_searchLine->text(),
                           backward ? QTextDocument::FindBackward : QTextDocument::FindFlags());
}

/** The next page with the text, starting after the present page and ending with it; empty when no page has the text. */
QUrl HelpWindow::nextPageWithText(Direction direction) const
{
    const QUrl current = m_browser->source().adjusted(QUrl::RemoveFragment);
    const QDir folder(QFileInfo(m_contents.toLocalFile()).path());
    const QStringList names = folder.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
    const int count = countOf(names);
    const auto start = names.indexOf(current.fileName());
    for (int step = 1; step <= count; ++step) {
        const int offset = direction == Direction::Forward ? step : count - step;
        const QString path = folder.filePath(names.at((start + offset + count) % count));
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QTextDocument document;
        document.setHtml(QString::fromUtf8(file.readAll()));
        if (!document.find(m_searchLine->text()).isNull())
            return QUrl::fromLocalFile(path);
    }
    return {};
}
