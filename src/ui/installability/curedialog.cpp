// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/installability/curedialog.h"

#include "core/countof.h"
#include "installability/installabilitytext.h"
#include "ui/widgets/mnemonics.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

CureDialog::CureDialog(const Cure &cure, const CheckScope &scope, QWidget *parent)
    : QDialog(parent)
    , m_state(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_tree(new QTreeWidget(this))
    , m_doIt(nullptr)
{
    setWindowTitle(tr("What this would change"));
    auto *text = new QLabel(cure.text, this);
    for (QLabel *label : {text, m_state}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_state->setObjectName(QStringLiteral("m_stateLabel"));
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_tree->setObjectName(QStringLiteral("m_effectTree"));
    m_tree->setAccessibleName(windowTitle());
    m_tree->setHeaderHidden(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_doIt = buttons->button(QDialogButtonBox::Ok);
    m_doIt->setText(verb(cure.kind));
    m_doIt->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(m_state);
    layout->addWidget(m_progress);
    layout->addWidget(m_tree, 1);
    layout->addStretch();
    layout->addWidget(buttons);
    constexpr QSize Characters(70, 18);
    resize(Characters.width() * fontMetrics().averageCharWidth(),
           Characters.height() * fontMetrics().lineSpacing());
    Mnemonics::markForm(this);

    m_state->setText(tr("Working out what this would change..."));
    const auto work
        = [scope, cure](const StopRequest &stopped) { return Cures(scope).effectOf(cure, stopped); };
    m_query.ask(this, work, [this](const CureEffect &effect) { showEffect(effect); });
}

QString CureDialog::verb(Cure::Kind kind)
{
    switch (kind) {
    case Cure::Fetch:
        return tr("Fetch");
    case Cure::Remove:
        return tr("Remove");
    case Cure::Upgrade:
        return tr("Upgrade");
    }
    return {};
}

void CureDialog::showEffect(const CureEffect &effect)
{
    m_progress->hide();
    m_tree->setVisible(!effect.gained.isEmpty() || !effect.lost.isEmpty());
    m_doIt->setEnabled(true);
    m_state->setText(m_tree->isHidden() ? tr("What can be installed stays the same.")
                                        : tr("For the packages of this repository:"));
    addPackages(tr("%n package(s) could be installed then", nullptr, countOf(effect.gained)), effect.gained);
    addPackages(tr("%n package(s) could no longer be installed", nullptr, countOf(effect.lost)), effect.lost);
}

void CureDialog::addPackages(const QString &title, const QList<PackageInfoPtr> &packages)
{
    if (packages.isEmpty())
        return;
    auto *group = new QTreeWidgetItem(m_tree, {title});
    constexpr int MostRows = 500;
    for (const PackageInfoPtr &package : packages.mid(0, MostRows))
        new QTreeWidgetItem(
            group,
            {InstallabilityText::name(
                {package->name, package->version, package->ownArchitecture(), true}, true, true)});
    if (packages.size() > MostRows)
        new QTreeWidgetItem(group, {tr("and %n more", nullptr, countOf(packages) - MostRows)});
    group->setExpanded(true);
}
