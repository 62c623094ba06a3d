// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/treefilter.h"

#include "ui/packages/repoproxymodel.h"
#include "ui/packages/repotreeview.h"
#include "ui/widgets/mnemonics.h"

#include <kfilterproxysearchline.h>

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include <array>

TreeFilter::TreeFilter(KFilterProxySearchLine &search,
                       RepoTreeView &tree,
                       RepoProxyModel &proxy,
                       QWidget *window)
    : QObject(window)
    , m_search(search)
    , m_tree(tree)
    , m_proxy(proxy)
    , m_menu(new QMenu(tr("Packet Filter"), window))
{
    setUpMenu();
    QLineEdit *line = search.lineEdit();
    line->setPlaceholderText(tr("Packages search"));
    line->setAccessibleName(tr("Packages search"));
    line->setClearButtonEnabled(true);
    search.setFocusProxy(line);
    QWidget::setTabOrder(line, &tree);
    connect(line, &QLineEdit::textChanged, this, &TreeFilter::search);
    line->installEventFilter(this);
    QAction *filter
        = line->addAction(QIcon::fromTheme(QStringLiteral("view-filter")), QLineEdit::LeadingPosition);
    filter->setText(m_menu->title());
    filter->setToolTip(m_menu->title());
    filter->setShortcut(QKeySequence(QStringLiteral("Alt+Down")));
    filter->setShortcutContext(Qt::WidgetShortcut);
    connect(filter, &QAction::triggered, this, [this, line] {
        m_menu->popup(line->mapToGlobal(line->rect().bottomLeft()));
    });
}

void TreeFilter::setUpMenu()
{
    struct Choice
    {
        int value;
        QString text;
    };
    // The entries have no icons: many styles would draw the icon in place of the check mark.
    const std::array<Choice, 3> choices = {{
        {RepoProxyModel::ShowUndefined, tr("Show depends undefined")},
        {RepoProxyModel::ShowError, tr("Show depends error")},
        {RepoProxyModel::ShowSuccess, tr("Show depends success")},
    }};
    for (const Choice &choice : choices) {
        QAction *action = m_menu->addAction(choice.text);
        action->setCheckable(true);
        action->setChecked(true);
        action->setData(choice.value);
        connect(action, &QAction::toggled, this, &TreeFilter::applyStates);
        m_states.append(action);
    }
    m_menu->addSeparator();
    const std::array<Choice, 2> faults = {{
        {RepoProxyModel::CannotBeInstalled, tr("Only packages that cannot be installed")},
        {RepoProxyModel::BreaksOthers, tr("Only packages that break others")},
    }};
    for (const Choice &choice : faults) {
        QAction *action = m_menu->addAction(choice.text);
        action->setCheckable(true);
        action->setData(choice.value);
        connect(action, &QAction::toggled, this, &TreeFilter::applyFaults);
        m_faults.append(action);
    }
    Mnemonics::mark(m_menu, nullptr);
}

bool TreeFilter::eventFilter(QObject *watched, QEvent *event)
{
    // These keys lead from the search line to the first match.
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isPlain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (isPlain
            && (key->key() == Qt::Key_Down || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
            m_tree.enterFromSearch();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void TreeFilter::search(const QString &text)
{
    const QString wanted = text.trimmed();
    if (!wanted.isEmpty())
        m_tree.setSearching(true);
    m_proxy.setFilterFixedString(wanted);
    if (wanted.isEmpty())
        m_tree.setSearching(false);
    else
        m_tree.showFirstMatch();
}

void TreeFilter::showAll()
{
    for (QAction *action : qAsConst(m_states))
        action->setChecked(true);
    for (QAction *action : qAsConst(m_faults))
        action->setChecked(false);
    m_search.lineEdit()->clear();
}

void TreeFilter::applyStates()
{
    RepoProxyModel::States states;
    for (const QAction *action : qAsConst(m_states)) {
        if (action->isChecked())
            states |= static_cast<RepoProxyModel::State>(action->data().toInt());
    }
    m_proxy.setShownStates(states);
    if (states != RepoProxyModel::ShowAll)
        m_tree.showFirstMatch();
}

void TreeFilter::applyFaults()
{
    RepoProxyModel::Faults faults;
    for (const QAction *action : qAsConst(m_faults)) {
        if (action->isChecked())
            faults |= static_cast<RepoProxyModel::Fault>(action->data().toInt());
    }
    m_proxy.setShownFaults(faults);
    if (faults != 0)
        m_tree.showFirstMatch();
}
