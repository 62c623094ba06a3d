// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/previeweffectview.h"

#include "core/countof.h"
#include "engine/preview/previewtext.h"
#include "installability/installabilitytext.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QIcon>

PreviewEffectView::PreviewEffectView(QWidget *parent)
    : QTreeWidget(parent)
    , m_copyAction(new QAction(QIcon::fromTheme(QStringLiteral("edit-copy")), tr("Copy"), this))
{
    setHeaderHidden(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setTextElideMode(Qt::ElideNone);
    setHorizontalScrollMode(ScrollPerPixel);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    m_copyAction->setShortcut(QKeySequence::Copy);
    m_copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(m_copyAction, &QAction::triggered, this, &PreviewEffectView::copySelected);
    addAction(m_copyAction);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void PreviewEffectView::showEffect(const ChangePreview &preview)
{
    clear();
    const PreviewEffect &effect = preview.effect;
    // What breaks comes first, and what is known without a search can be read at once.
    if (effect.isKnown)
        addBroken(preview);
    addLines(tr("The description"), effect.description);
    addLines(tr("Clients"), PreviewText::clients(preview));
    if (!effect.isKnown)
        return;
    addPackages(tr("%n package(s) could be installed then", nullptr, countOf(effect.gained)),
                PreviewText::gained(effect),
                preview.repository,
                nullptr);
    if (effect.lost.isEmpty() && effect.gained.isEmpty() && effect.uninstallable.isEmpty())
        addGroup(tr("What can be installed stays the same."));
    if (!effect.base.isEmpty())
        addGroup(tr("Checked against: %1").arg(effect.base));
    addGroup(PreviewText::sizes(effect),
             effect.free >= 0 && effect.comes > effect.free ? "dialog-warning" : nullptr);
    if (!effect.signature.isEmpty())
        addGroup(effect.signature);
}

void PreviewEffectView::addBroken(const ChangePreview &preview)
{
    const PreviewEffect &effect = preview.effect;
    addPackages(tr("%n package(s) could no longer be installed", nullptr, countOf(effect.lost)),
                effect.lost,
                preview.repository,
                "dialog-warning");
    addPackages(tr("%n package(s) that come in cannot be installed", nullptr, countOf(effect.uninstallable)),
                effect.uninstallable,
                preview.repository,
                "dialog-warning");
}

void PreviewEffectView::addPackages(const QString &title,
                                    const QVector<PreviewLoss> &packages,
                                    const QString &repository,
                                    const char *icon)
{
    if (packages.isEmpty())
        return;
    QTreeWidgetItem *group = addGroup(title, icon);
    // Nobody reads more; the report has all of them.
    constexpr int MostRows = 500;
    for (const PreviewLoss &loss : packages.mid(0, MostRows)) {
        QString name = PreviewText::package(*loss.package);
        if (loss.repository != repository)
            name = tr("%1 in the repository %2").arg(name, InstallabilityText::shown(loss.repository));
        auto *item = new QTreeWidgetItem(group, {name});
        for (const QString &reason : loss.reasons)
            new QTreeWidgetItem(item, {reason});
        item->setExpanded(true);
    }
    if (packages.size() > MostRows)
        new QTreeWidgetItem(group, {tr("and %n more", nullptr, countOf(packages) - MostRows)});
    group->setExpanded(true);
}

void PreviewEffectView::addLines(const QString &title, const QStringList &lines)
{
    if (lines.isEmpty())
        return;
    QTreeWidgetItem *group = addGroup(title);
    for (const QString &line : lines)
        new QTreeWidgetItem(group, {line});
    group->setExpanded(true);
}

QTreeWidgetItem *PreviewEffectView::addGroup(const QString &title, const char *icon)
{
    auto *group = new QTreeWidgetItem(this, {title});
    if (icon != nullptr)
        group->setIcon(0, QIcon::fromTheme(QLatin1String(icon)));
    return group;
}

void PreviewEffectView::copySelected()
{
    QStringList lines;
    for (QTreeWidgetItemIterator item(this, QTreeWidgetItemIterator::Selected); *item != nullptr; ++item)
        lines << (*item)->text(0);
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}
