// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/treefilter.h"

#include "ui/packages/repomodel.h"
#include "ui/packages/repoproxymodel.h"
#include "ui/packages/repotreeview.h"
#include "ui/tab/filterline.h"
#include "ui/widgets/mnemonics.h"
#include "ui/widgets/sections.h"

#include <kfilterproxysearchline.h>

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include <array>
#include <utility>

namespace
{
/** The filters in the line above the tree. */
enum FilterId {
    StateFilter,
    NotInstallableFilter,
    BreakingFilter,
    ArchitectureFilter,
    ComponentFilter,
    SectionFilter,
    SignatureFilter
};
} // namespace

TreeFilter::TreeFilter(KFilterProxySearchLine &search,
                       RepoTreeView &tree,
                       RepoProxyModel &proxy,
                       QWidget *window)
    : QObject(window)
    , m_search(search)
    , m_tree(tree)
    , m_proxy(proxy)
    , m_menu(new QMenu(tr("Packet Filter"), window))
    , m_line(new FilterLine(window))
{
    setUpMenu();
    QLineEdit *line = search.lineEdit();
    line->setPlaceholderText(tr("Packages search"));
    line->setAccessibleName(tr("Packages search"));
    line->setClearButtonEnabled(true);
    search.setFocusProxy(line);
    setUpLine();
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
    m_menu->addSeparator();
    addValues(tr("Architecture"), &PackageChoice::architectures, [](const QString &value) { return value; });
    addValues(tr("Component"), &PackageChoice::components, [](const QString &value) { return value; });
    addValues(tr("Section"), &PackageChoice::sections, &Sections::nameWithCode);
    addSignatures();
    Mnemonics::mark(m_menu, nullptr);
}

void TreeFilter::addValues(const QString &title,
                           QStringList PackageChoice::*values,
                           const std::function<QString(const QString &value)> &text)
{
    QMenu *menu = m_menu->addMenu(title);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, values, text] {
        menu->clear();
        QStringList present = PackageChoice::valuesOf(m_proxy.repoModel()->tree()).*values;
        // A value that no package has any more can be taken back too.
        for (const QString &chosen : std::as_const(m_choice.*values)) {
            if (!present.contains(chosen))
                present << chosen;
        }
        for (const QString &value : std::as_const(present)) {
            QAction *action = menu->addAction(text(value).replace(QLatin1Char('&'), QLatin1String("&&")));
            action->setCheckable(true);
            action->setChecked((m_choice.*values).contains(value));
            connect(action, &QAction::toggled, this, [this, values, value](bool isChosen) {
                (m_choice.*values).removeAll(value);
                if (isChosen)
                    (m_choice.*values).append(value);
                applyChoice();
            });
        }
    });
}

void TreeFilter::addSignatures()
{
    QMenu *menu = m_menu->addMenu(tr("Signature"));
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        for (const auto signature : {PackageChoice::Signed, PackageChoice::Unsigned}) {
            QAction *action
                = menu->addAction(signature == PackageChoice::Signed ? tr("Signed") : tr("Unsigned"));
            action->setCheckable(true);
            action->setChecked(m_choice.signature == signature);
            connect(action, &QAction::toggled, this, [this, signature](bool isChosen) {
                m_choice.signature = isChosen ? signature : PackageChoice::AnySignature;
                applyChoice();
            });
        }
    });
}

// --- the line above the tree ---------------------------------------------------------------------------------------

void TreeFilter::setUpLine()
{
    constexpr int CountDelay = 50; // milliseconds
    m_line->setObjectName(QStringLiteral("m_filterLine"));
    m_line->setNeighbours(m_search.lineEdit(), &m_tree);
    connect(m_line, &FilterLine::removed, this, &TreeFilter::removeFilter);
    connect(m_line, &FilterLine::allRemoved, this, &TreeFilter::showAll);
    m_countTimer.setSingleShot(true);
    m_countTimer.setInterval(CountDelay);
    connect(&m_countTimer, &QTimer::timeout, this, &TreeFilter::count);
    const auto countLater = [this] { m_countTimer.start(); };
    connect(&m_proxy, &RepoProxyModel::layoutChanged, this, countLater);
    connect(&m_proxy, &RepoProxyModel::modelReset, this, countLater);
    connect(&m_proxy, &RepoProxyModel::rowsInserted, this, countLater);
    connect(&m_proxy, &RepoProxyModel::rowsRemoved, this, countLater);
}

void TreeFilter::count()
{
    const RepoModel *model = m_proxy.repoModel();
    if (m_proxy.isFiltering() && model->hasRepository())
        m_line->setCount(m_proxy.shownPackages(), model->packageCount());
    else
        m_line->setCount(-1, 0);
}

void TreeFilter::showFilters()
{
    QVector<FilterLine::Filter> filters;
    QStringList states;
    const QStringList names{tr("not checked"), tr("not satisfied"), tr("satisfied")};
    for (int i = 0; i < m_states.size(); ++i) {
        if (m_states.at(i)->isChecked())
            states << names.at(i);
    }
    if (states.size() < m_states.size())
        filters.append(
            {StateFilter,
             tr("Dependences: %1").arg(states.isEmpty() ? tr("none") : states.join(QLatin1String(", ")))});
    const QStringList faults{tr("Cannot be installed"), tr("Breaks others")};
    for (int i = 0; i < m_faults.size(); ++i) {
        if (m_faults.at(i)->isChecked())
            filters.append({NotInstallableFilter + i, faults.at(i)});
    }
    const auto add = [&filters](FilterId id, const QString &text, const QStringList &values) {
        if (!values.isEmpty())
            filters.append({id, text.arg(values.join(QLatin1String(", ")))});
    };
    add(ArchitectureFilter, tr("Architecture: %1"), m_choice.architectures);
    add(ComponentFilter, tr("Component: %1"), m_choice.components);
    QStringList sections;
    for (const QString &code : std::as_const(m_choice.sections))
        sections << Sections::displayName(code);
    add(SectionFilter, tr("Section: %1"), sections);
    if (m_choice.signature != PackageChoice::AnySignature)
        filters.append(
            {SignatureFilter,
             tr("Signature: %1")
                 .arg(m_choice.signature == PackageChoice::Signed ? tr("signed") : tr("unsigned"))});
    m_line->setFilters(filters);
    m_countTimer.start();
}

void TreeFilter::removeFilter(int id)
{
    switch (id) {
    case StateFilter:
        for (QAction *action : std::as_const(m_states))
            action->setChecked(true);
        break;
    case NotInstallableFilter:
    case BreakingFilter:
        m_faults.at(id - NotInstallableFilter)->setChecked(false);
        break;
    case ArchitectureFilter:
        m_choice.architectures.clear();
        break;
    case ComponentFilter:
        m_choice.components.clear();
        break;
    case SectionFilter:
        m_choice.sections.clear();
        break;
    default:
        m_choice.signature = PackageChoice::AnySignature;
        break;
    }
    applyChoice();
}

void TreeFilter::applyChoice()
{
    m_proxy.setChoice(m_choice);
    showFilters();
    if (!m_choice.isEmpty())
        m_tree.showFirstMatch();
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
    for (QAction *action : std::as_const(m_states))
        action->setChecked(true);
    for (QAction *action : std::as_const(m_faults))
        action->setChecked(false);
    m_search.lineEdit()->clear();
    m_choice = {};
    applyChoice();
}

void TreeFilter::applyStates()
{
    RepoProxyModel::States states;
    for (const QAction *action : std::as_const(m_states)) {
        if (action->isChecked())
            states |= static_cast<RepoProxyModel::State>(action->data().toInt());
    }
    m_proxy.setShownStates(states);
    showFilters();
    if (states != RepoProxyModel::ShowAll)
        m_tree.showFirstMatch();
}

void TreeFilter::applyFaults()
{
    RepoProxyModel::Faults faults;
    for (const QAction *action : std::as_const(m_faults)) {
        if (action->isChecked())
            faults |= static_cast<RepoProxyModel::Fault>(action->data().toInt());
    }
    m_proxy.setShownFaults(faults);
    showFilters();
    if (faults != 0)
        m_tree.showFirstMatch();
}
