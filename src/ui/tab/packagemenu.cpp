// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/packagemenu.h"

#include "ui/tab/repowidget.h"
#include "ui/tab/treefilter.h"
#include "ui/widgets/mnemonics.h"

#include <QMenu>

#include <utility>

PackageMenu::PackageMenu(Commands commands, QWidget *window)
    : QObject(window)
    , m_commands(std::move(commands))
    , m_menu(new QMenu(window))
    , m_filter(new QMenu(TreeFilter::tr("Packet Filter"), window))
{
    m_menu->setObjectName(QStringLiteral("m_packageMenu"));
    m_filter->setObjectName(QStringLiteral("m_packetFilterMenu"));
    m_filter->setIcon(QIcon::fromTheme(QStringLiteral("view-filter")));
    // All possible entries are added first, so that each entry gets a key of its own.
    fill(true, true, true);
    Mnemonics::mark(m_menu, m_filter);
    setTab(nullptr);
}

void PackageMenu::fill(bool onItem, bool inRepository, bool onRepository)
{
    m_menu->clear();
    m_menu->addActions(m_commands.always);
    if (onItem)
        m_menu->addActions(m_commands.packages);
    if (inRepository)
        m_menu->addActions(m_commands.files);
    m_menu->addSeparator();
    m_menu->addActions(m_commands.checks);
    m_menu->addMenu(m_filter);
    if (onRepository) {
        m_menu->addSeparator();
        m_menu->addActions(m_commands.repository);
    }
}

void PackageMenu::setTab(const RepoWidget *widget)
{
    m_filter->clear();
    if (widget != nullptr)
        m_filter->addActions(widget->packetFilterMenu()->actions());
    m_filter->setEnabled(widget != nullptr);
}

void PackageMenu::popup(const RepoWidget &widget, const QPoint &globalPos)
{
    const RepoWidget::CurrentItem item = widget.currentItem();
    const bool inRepository = item == RepoWidget::CurrentItem::InRepository;
    fill(item != RepoWidget::CurrentItem::None, inRepository, !inRepository);
    m_menu->popup(globalPos);
}
