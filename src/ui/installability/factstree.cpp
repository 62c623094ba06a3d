// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/installability/factstree.h"

#include "core/countof.h"
#include "installability/installabilitytext.h"
#include "ui/widgets/tooltiptext.h"

#include <QEvent>
#include <QFont>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>

namespace
{
constexpr int PackageRole = Qt::UserRole;
constexpr int RepositoryRole = Qt::UserRole + 1;
constexpr int MostRows
    = 500; ///< of one list; nobody reads more, and half a distribution can need one package

NamedPackage named(const PackageInfo &package)
{
    return {package.name, package.version, package.ownArchitecture(), true};
}

/** Each package of the repository that the reason names, in its order. */
QVector<NamedPackage> localPackages(const QVector<InstallabilityStep> &reason, const PackageInfo &except)
{
    QVector<NamedPackage> result;
    const auto take = [&](const NamedPackage &package) {
        const bool isShown = package.name == except.name && package.version == except.version;
        if (package.isLocal && !isShown && !result.contains(package))
            result.append(package);
    };
    for (const InstallabilityStep &step : reason) {
        take(step.package);
        std::for_each(step.targets.cbegin(), step.targets.cend(), take);
    }
    return result;
}

/** Gives each row the height that its wrapped text needs. A tree view alone cuts such a text after the first line. */
class WrappingDelegate : public QStyledItemDelegate
{
public:
    explicit WrappingDelegate(QTreeView *tree)
        : QStyledItemDelegate(tree)
        , m_tree(tree)
    { }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        int depth = 1;
        for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent())
            ++depth;
        const int margin
            = 2 * (m_tree->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_tree) + 1);
        const int width = m_tree->viewport()->width() - depth * m_tree->indentation() - margin;
        const QFont font
            = index.data(Qt::FontRole).isValid() ? index.data(Qt::FontRole).value<QFont>() : option.font;
        return {size.width(), qMax(size.height(), heightOf(index.data().toString(), font, width) + 2)};
    }

private:
    QTreeView *m_tree;

    /** Lines are broken as the style breaks them. */
    static int heightOf(const QString &text, const QFont &font, int width)
    {
        QTextLayout layout(text, font);
        QTextOption option;
        option.setWrapMode(QTextOption::WordWrap);
        layout.setTextOption(option);
        qreal height = 0;
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(qMax(width, 1));
            height += line.height();
        }
        layout.endLayout();
        return qCeil(height);
    }
};
} // namespace

FactsTree::FactsTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setItemDelegate(new WrappingDelegate(this));
    setHeaderHidden(true);
    setWordWrap(true);
    setUniformRowHeights(false);
    setTextElideMode(Qt::ElideMiddle);
    setEditTriggers(NoEditTriggers);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    connect(this, &QTreeWidget::itemClicked, this, &FactsTree::choose);
    connect(this, &QTreeWidget::itemActivated, this, &FactsTree::choose);
    const auto note = [this](const QTreeWidgetItem *item, bool isClosed) {
        if (m_isFilling)
            return;
        if (isClosed)
            m_closed.insert(pathOf(item));
        else
            m_closed.remove(pathOf(item));
    };
    connect(
        this, &QTreeWidget::itemCollapsed, this, [note](const QTreeWidgetItem *item) { note(item, true); });
    connect(
        this, &QTreeWidget::itemExpanded, this, [note](const QTreeWidgetItem *item) { note(item, false); });
}

void FactsTree::showFacts(const InstallabilityFacts &facts)
{
    const QScopedValueRollback<bool> guard(m_isFilling, true);
    clear();
    if (!facts.package || !facts.package->installability)
        return;
    m_architecture = facts.package->architecture;
    addReason(*facts.package);
    addRecommends(facts.package->installability->unmetRecommends);
    addNeeds(facts);
}

void FactsTree::addReason(const PackageInfo &package)
{
    const InstallabilityInfo &info = *package.installability;
    if (info.state != NotInstallable)
        return;
    QTreeWidgetItem *group = addGroup(nullptr, tr("Why it cannot be installed"));
    const QStringList sentences = InstallabilityText::sentences(info.reason);
    for (const QString &sentence : sentences)
        addText(group, sentence);
    if (sentences.isEmpty())
        addText(group, tr("The reason was not found."));
    const QVector<NamedPackage> packages = localPackages(info.reason, package);
    for (const NamedPackage &other : packages)
        addLink(group, other, QString());
}

void FactsTree::addRecommends(const QStringList &entries)
{
    if (entries.isEmpty())
        return;
    QTreeWidgetItem *group = addGroup(nullptr, tr("Recommended, but cannot be installed together with it"));
    for (const QString &entry : entries)
        addText(group, InstallabilityText::shown(entry));
}

void FactsTree::addNeeds(const InstallabilityFacts &facts)
{
    QTreeWidgetItem *group = addGroup(nullptr, tr("Needed by"));
    if (!facts.needs) {
        addText(group, tr("Looking for packages that need it..."));
        return;
    }
    for (const RepositoryImpact &impact : *facts.needs) {
        if (impact.path == facts.repository)
            addImpact(group, impact, QString());
        else if (!impact.direct.isEmpty() || !impact.lost.isEmpty())
            addImpact(addGroup(group, tr("In the repository %1").arg(InstallabilityText::shown(impact.path))),
                      impact,
                      impact.path);
    }
    if (group->childCount() == 0)
        addText(group, tr("No package of the open repositories needs it."));
}

void FactsTree::addImpact(QTreeWidgetItem *parent, const RepositoryImpact &impact, const QString &repository)
{
    addPackages(
        parent, tr("%n package(s) directly", nullptr, countOf(impact.direct)), impact.direct, repository);
    addPackages(parent,
                tr("%n package(s) could no longer be installed without it", nullptr, countOf(impact.lost)),
                impact.lost,
                repository);
}

void FactsTree::addPackages(QTreeWidgetItem *parent,
                            const QString &title,
                            const QList<PackageInfoPtr> &packages,
                            const QString &repository)
{
    if (packages.isEmpty())
        return;
    QTreeWidgetItem *group = addGroup(parent, title);
    for (const PackageInfoPtr &package : packages.mid(0, MostRows))
        addLink(group, named(*package), repository);
    if (packages.size() > MostRows)
        addText(group, tr("and %n more", nullptr, countOf(packages) - MostRows));
}

// --- rows ----------------------------------------------------------------------------------------------------------

QTreeWidgetItem *FactsTree::addGroup(QTreeWidgetItem *parent, const QString &title)
{
    auto *group = parent == nullptr ? new QTreeWidgetItem(this) : new QTreeWidgetItem(parent);
    group->setText(0, title);
    if (parent == nullptr) {
        QFont bold = font();
        bold.setBold(true);
        group->setFont(0, bold);
    }
    group->setExpanded(!m_closed.contains(pathOf(group)));
    return group;
}

void FactsTree::addText(QTreeWidgetItem *parent, const QString &text)
{
    auto *item = new QTreeWidgetItem(parent);
    item->setText(0, text);
    item->setToolTip(0, toolTipText(text));
}

void FactsTree::addLink(QTreeWidgetItem *parent, const NamedPackage &package, const QString &repository)
{
    auto *item = new QTreeWidgetItem(parent);
    const bool isOther
        = package.architecture != m_architecture && package.architecture != QLatin1String("all");
    item->setText(0, InstallabilityText::name(package, true, isOther));
    item->setToolTip(0, tr("Show this package"));
    item->setData(0, PackageRole, QVariant::fromValue(package));
    item->setData(0, RepositoryRole, repository);
    QFont underlined = font();
    underlined.setUnderline(true);
    item->setFont(0, underlined);
    item->setForeground(0, linkColour());
}

void FactsTree::choose(const QTreeWidgetItem *item)
{
    const QVariant package = item->data(0, PackageRole);
    if (package.isValid())
        Q_EMIT packageChosen(item->data(0, RepositoryRole).toString(), package.value<NamedPackage>());
}

QColor FactsTree::linkColour() const
{
    constexpr int Middle = 128;
    constexpr int Readable = 180;
    QColor colour = palette().color(QPalette::Link);
    // Many dark styles leave the dark blue of light ones.
    if (palette().color(QPalette::Base).lightness() < Middle && colour.lightness() < Readable)
        colour.setHsl(colour.hslHue(), colour.hslSaturation(), Readable);
    return colour;
}

QStringList FactsTree::pathOf(const QTreeWidgetItem *item)
{
    QStringList path;
    for (; item != nullptr; item = item->parent())
        path.prepend(item->text(0));
    return path;
}

void FactsTree::changeEvent(QEvent *event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        if ((*item)->data(0, PackageRole).isValid())
            (*item)->setForeground(0, linkColour());
    }
}

void FactsTree::resizeEvent(QResizeEvent *event)
{
    QTreeWidget::resizeEvent(event);
    scheduleDelayedItemsLayout();
}
