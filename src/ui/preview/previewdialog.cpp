// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/previewdialog.h"

#include "engine/preview/previewtext.h"
#include "platform/ui/windowgeometry.h"
#include "ui/preview/previewchoice.h"
#include "ui/preview/previeweffectview.h"
#include "ui/preview/previewfilter.h"
#include "ui/widgets/elidedlabel.h"
#include "ui/widgets/mnemonics.h"
#include "ui/widgets/tablelook.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace
{
const QString columnsKey = QStringLiteral("PreviewDialog/columns");
const QString splitterKey = QStringLiteral("PreviewDialog/splitter");

/** How long the user pauses before the effect of switched rows is looked for, in milliseconds. */
constexpr int Pause = 700;

/** The rules of the question about a replacement, in its words and its order. */
constexpr std::array<std::pair<PackageReplacementRules::Rule, const char *>, 4> Rules = {{
    {PackageReplacementRules::PreferHigher,
     QT_TRANSLATE_NOOP("PackageReplacementDialog", "Give preference to versions higer")},
    {PackageReplacementRules::PreferLower,
     QT_TRANSLATE_NOOP("PackageReplacementDialog", "Give preference to versions lower")},
    {PackageReplacementRules::ReplaceAll,
     QT_TRANSLATE_NOOP("PackageReplacementDialog", "Replace all packages")},
    {PackageReplacementRules::ReplaceNone,
     QT_TRANSLATE_NOOP("PackageReplacementDialog", "Do not replace packages")},
}};

QLabel *plainLabel(QWidget *parent, const QString &name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}
} // namespace

PreviewDialog::PreviewDialog(const ChangePreview &preview,
                             const PreviewModel::AliasLookup &aliases,
                             QWidget *parent)
    : QDialog(parent)
    , m_model(new PreviewModel(this))
    , m_filter(new PreviewFilter(m_model, this))
    , m_heading(plainLabel(this, QStringLiteral("m_headingLabel")))
    , m_notice(plainLabel(this, QStringLiteral("m_noticeLabel")))
    , m_carrying(new QCheckBox(
          QCoreApplication::translate("NewRepoDialog", "&Carry the packages over to the new code name"),
          this))
    , m_extending(new QCheckBox(this))
    , m_collisions(new QWidget(this))
    , m_ruleBox(new QComboBox(m_collisions))
    , m_replaceKind(new QPushButton(tr("Replace all of this kind"), m_collisions))
    , m_keepKind(new QPushButton(tr("Keep all of this kind"), m_collisions))
    , m_filterEdit(new QLineEdit(this))
    , m_difference(new QPushButton(tr("Difference..."), this))
    , m_view(new QTreeView(this))
    , m_counts(new ElidedLabel(this))
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_state(plainLabel(this, QStringLiteral("m_effectLabel")))
    , m_progress(new QProgressBar(this))
    , m_stop(new QPushButton(tr("Stop"), this))
    , m_effect(new PreviewEffectView(this))
    , m_pause(new QTimer(this))
{
    setWindowTitle(tr("Preview"));
    setSizeGripEnabled(true);
    m_model->setAliases(aliases);
    m_pause->setSingleShot(true);
    m_pause->setInterval(Pause);
    m_notice->hide();
    m_carrying->setObjectName(QStringLiteral("m_carryCheckBox"));
    m_carrying->hide();
    m_extending->setObjectName(QStringLiteral("m_extendCheckBox"));
    m_extending->hide();

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Apply | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    m_apply = buttons->button(QDialogButtonBox::Apply);
    m_apply->setDefault(true);
    QPushButton *report = buttons->addButton(tr("Save as report..."), QDialogButtonBox::ActionRole);
    report->setObjectName(QStringLiteral("m_reportButton"));
    connect(m_apply, &QPushButton::clicked, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(report, &QPushButton::clicked, this, &PreviewDialog::reportWanted);

    m_splitter->setObjectName(QStringLiteral("m_splitter"));
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(buildRows());
    m_splitter->addWidget(buildEffect());
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_heading);
    layout->addWidget(m_notice);
    layout->addWidget(m_carrying);
    layout->addWidget(m_extending);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(buttons);
    // Only the default button answers Enter; the others would take it when they have the focus of a click.
    for (QPushButton *button : {m_replaceKind, m_keepKind, m_difference, m_stop, report})
        button->setAutoDefault(false);
    Mnemonics::markForm(this);
    connectParts();
    setPreview(preview);
    restore();
    m_view->setFocus();
}

// --- building ----------------------------------------------------------------------------------------------------

QWidget *PreviewDialog::buildRows()
{
    m_ruleBox->setObjectName(QStringLiteral("m_ruleComboBox"));
    m_ruleBox->addItem(tr("as chosen in the rows"));
    for (const auto &rule : Rules)
        m_ruleBox->addItem(QCoreApplication::translate("PackageReplacementDialog", rule.second),
                           int(rule.first));
    m_replaceKind->setObjectName(QStringLiteral("m_replaceKindButton"));
    m_keepKind->setObjectName(QStringLiteral("m_keepKindButton"));
    auto *ruleLabel = new QLabel(tr("Packages that are already there:"), m_collisions);
    ruleLabel->setBuddy(m_ruleBox);
    auto *bar = new QHBoxLayout(m_collisions);
    bar->setContentsMargins(0, 0, 0, 0);
    bar->addWidget(ruleLabel);
    bar->addWidget(m_ruleBox);
    bar->addStretch();
    bar->addWidget(m_replaceKind);
    bar->addWidget(m_keepKind);

    m_filterEdit->setObjectName(QStringLiteral("m_filterLineEdit"));
    m_filterEdit->setPlaceholderText(tr("Name, or what happens"));
    m_filterEdit->setClearButtonEnabled(true);
    m_difference->setObjectName(QStringLiteral("m_differenceButton"));
    m_difference->setToolTip(tr("Compare the present file with the new one"));
    auto *filterLabel = new QLabel(tr("Filter:"), this);
    filterLabel->setBuddy(m_filterEdit);
    auto *line = new QHBoxLayout;
    line->addWidget(filterLabel);
    line->addWidget(m_filterEdit, 1);
    line->addWidget(m_difference);

    buildView();
    m_counts->setObjectName(QStringLiteral("m_countsLabel"));
    auto *rows = new QWidget(this);
    auto *layout = new QVBoxLayout(rows);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_collisions);
    layout->addLayout(line);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_counts);
    return rows;
}

void PreviewDialog::buildView()
{
    m_view->setObjectName(QStringLiteral("m_rowsView"));
    m_view->setModel(m_filter);
    TableLook::apply(*m_view, tr("Packages that the change concerns"));
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setItemDelegateForColumn(PreviewModel::Happens, new PreviewChoice(m_view));
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setSortingEnabled(true);
    // In the order of the job until the user chooses a column.
    m_view->sortByColumn(-1, Qt::AscendingOrder);
    auto *toggle = new QAction(m_view);
    toggle->setShortcut(Qt::Key_Space);
    toggle->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(toggle);
    connect(toggle, &QAction::triggered, this, &PreviewDialog::toggleSelected);
    // One click opens the choice of a collision, as a click on a combo box does.
    connect(m_view, &QTreeView::clicked, this, [this](const QModelIndex &index) {
        if (index.column() == PreviewModel::Happens && (index.flags() & Qt::ItemIsEditable) != 0)
            m_view->edit(index);
    });
}

QWidget *PreviewDialog::buildEffect()
{
    m_effect->setObjectName(QStringLiteral("m_effectTree"));
    m_effect->setAccessibleName(tr("Effect"));
    m_progress->setObjectName(QStringLiteral("m_progressBar"));
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_stop->setObjectName(QStringLiteral("m_stopButton"));
    // The effect keeps its place when the button comes and goes.
    m_state->setMinimumHeight(m_stop->sizeHint().height());
    auto *line = new QHBoxLayout;
    line->addWidget(m_state, 2);
    line->addWidget(m_progress, 1);
    line->addWidget(m_stop);
    auto *effect = new QWidget(this);
    auto *layout = new QVBoxLayout(effect);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(line);
    layout->addWidget(m_effect, 1);
    return effect;
}

void PreviewDialog::connectParts()
{
    connect(m_filterEdit, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filter->setText(text);
        if (!m_view->currentIndex().isValid())
            m_view->setCurrentIndex(m_filter->index(0, 0));
        showCounts();
        showCurrent();
    });
    connect(m_ruleBox, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        const QVariant rule = m_ruleBox->itemData(index);
        if (rule.isValid())
            m_model->decide(static_cast<PackageReplacementRules::Rule>(rule.toInt()));
        else
            showCounts();
    });
    connect(m_replaceKind, &QPushButton::clicked, this, [this] { switchKind(true); });
    connect(m_keepKind, &QPushButton::clicked, this, [this] { switchKind(false); });
    connect(m_difference, &QPushButton::clicked, this, [this] {
        if (const PreviewRow *row = currentRow())
            Q_EMIT differenceWanted(PreviewRow(*row));
    });
    connect(
        m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, &PreviewDialog::showCurrent);
    connect(m_model, &PreviewModel::switched, this, &PreviewDialog::rowsSwitched);
    connect(m_pause, &QTimer::timeout, this, &PreviewDialog::effectWanted);
    connect(m_stop, &QPushButton::clicked, this, [this] {
        m_stop->setEnabled(false);
        Q_EMIT stopWanted();
    });
}

void PreviewDialog::restore()
{
    const QSettings settings;
    constexpr QSize Characters(165, 44);
    const QSize wished(Characters.width() * fontMetrics().averageCharWidth(),
                       Characters.height() * fontMetrics().lineSpacing());
    const QRect available = parentWidget() == nullptr ? screen()->availableGeometry()
                                                      : parentWidget()->screen()->availableGeometry();
    QRect place(QPoint(), wished.boundedTo(available.size() * 9 / 10));
    place.moveCenter(parentWidget() == nullptr ? available.center() : parentWidget()->geometry().center());
    QSettings stored;
    veltRestoreGeometry(this, stored, place, false);
    if (!m_splitter->restoreState(settings.value(splitterKey).toByteArray()))
        m_splitter->setSizes({height() * 3 / 5, height() * 2 / 5});
    if (m_view->header()->restoreState(settings.value(columnsKey).toByteArray())
        && m_view->header()->count() == PreviewModel::ColumnCount) {
        m_view->sortByColumn(-1, Qt::AscendingOrder);
        return;
    }
    const std::array<int, PreviewModel::ColumnCount> widths = {24, 14, 0, 16, 16, 12, 20};
    for (int column = 0; column < PreviewModel::ColumnCount; ++column)
        m_view->setColumnWidth(column, widths.at(size_t(column)) * fontMetrics().averageCharWidth());
    // The text, and room for an arrow.
    m_view->setColumnWidth(PreviewModel::Happens,
                           fontMetrics().horizontalAdvance(PreviewModel::longestChoice())
                               + fontMetrics().lineSpacing() * 2);
}

void PreviewDialog::done(int result)
{
    QSettings settings;
    veltSaveGeometry(this, settings, false);
    settings.setValue(splitterKey, m_splitter->saveState());
    settings.setValue(columnsKey, m_view->header()->saveState());
    QDialog::done(result);
}

// --- showing -----------------------------------------------------------------------------------------------------

QString PreviewDialog::headingOf(const ChangePreview &preview)
{
    const QString &path = preview.repository;
    switch (preview.kind) {
    case ChangePreview::Add:
        return tr("What adding these packages would change in %1. Nothing has been changed yet.").arg(path);
    case ChangePreview::Remove:
        return tr("What removing these packages would change in %1. Nothing has been changed yet.").arg(path);
    case ChangePreview::Fetch:
        return tr("What fetching these packages would change in %1. Nothing has been changed yet.").arg(path);
    case ChangePreview::Import:
        return tr("What this import would change in %1. Nothing has been changed yet.").arg(path);
    case ChangePreview::Upgrade:
        return tr("What this upgrade would change in %1. Nothing has been changed yet.").arg(path);
    case ChangePreview::Describe:
        return tr("What the new description would change in %1. Nothing has been changed yet.").arg(path);
    case ChangePreview::Return:
        return tr("What going back would change in %1. Nothing has been changed yet.").arg(path);
    }
    return {};
}

void PreviewDialog::setPreview(const ChangePreview &preview)
{
    m_isPending = false;
    m_heading->setText(headingOf(preview));
    m_model->setPreview(preview);
    if (!m_view->currentIndex().isValid())
        m_view->setCurrentIndex(m_filter->index(0, 0));
    m_isWorking = !preview.effect.isKnown;
    showPreview();
}

void PreviewDialog::tellRepositoryChanged()
{
    m_notice->setText(tr("The repository has changed meanwhile, so nothing was done. This is what the change "
                         "would do now."));
    m_notice->show();
}

void PreviewDialog::offerCarrying(bool carries)
{
    offer(m_carrying, carries, &PreviewDialog::carryingChosen);
}

void PreviewDialog::offerExtending(bool extends)
{
    m_extending->setText(tr("Add %1 to the repository").arg(m_model->preview().lacking.names()));
    Mnemonics::markForm(this);
    offer(m_extending, extends, &PreviewDialog::extendingChosen);
}

void PreviewDialog::offer(QCheckBox *box, bool isTicked, void (PreviewDialog::*chosen)(bool))
{
    box->setChecked(isTicked);
    box->show();
    connect(box, &QCheckBox::toggled, this, [this, chosen](bool isWanted) {
        m_isPending = true;
        m_pause->stop();
        showWorking();
        Q_EMIT(this->*chosen)(isWanted);
    });
}

void PreviewDialog::setSteps(int steps)
{
    m_progress->setRange(0, steps);
}

void PreviewDialog::showProgress(int step)
{
    m_progress->setValue(step);
}

void PreviewDialog::endProgress()
{
    m_isWorking = false;
    m_stop->setEnabled(true);
    showPreview();
}

void PreviewDialog::showPreview()
{
    const ChangePreview &preview = m_model->preview();
    m_progress->setVisible(m_isWorking && !preview.effect.isKnown);
    m_stop->setVisible(m_progress->isVisibleTo(this));
    if (preview.effect.isKnown)
        m_state->setText(preview.breaksSomething() ? tr("Effect: something would break.")
                                                   : tr("Effect: nothing would break."));
    else
        m_state->setText(m_isWorking ? tr("Effect: is being worked out...")
                                     : tr("Effect: not known, because the search was stopped."));
    m_effect->showEffect(preview);
    showCounts();
    showCurrent();
}

void PreviewDialog::showCounts()
{
    QString text = PreviewText::counts(m_model->preview());
    if (m_filter->rowCount() != m_model->rowCount())
        text
            += QLatin1String("; ") + tr("shown: %1 of %2").arg(m_filter->rowCount()).arg(m_model->rowCount());
    m_counts->setFullText(text);
    m_collisions->setVisible(m_model->hasCollisions());
    m_difference->setVisible(m_model->hasComparable());
    const auto rule = m_model->rule();
    m_ruleBox->setCurrentIndex(rule ? m_ruleBox->findData(int(*rule)) : 0);
    m_apply->setEnabled(!m_isPending && m_model->preview().changesSomething());
}

void PreviewDialog::showCurrent()
{
    const PreviewRow *row = currentRow();
    const bool isCollision = row != nullptr && row->verdict == PreviewRow::Collision;
    m_replaceKind->setEnabled(isCollision);
    m_keepKind->setEnabled(isCollision);
    const QString kind = isCollision ? PreviewModel::kindText(row->relation) : QString();
    m_replaceKind->setToolTip(kind);
    m_keepKind->setToolTip(kind);
    m_difference->setEnabled(row != nullptr && PreviewModel::isComparable(*row));
}

const PreviewRow *PreviewDialog::currentRow() const
{
    const QModelIndex index = m_filter->mapToSource(m_view->currentIndex());
    return index.isValid() ? &m_model->row(index.row()) : nullptr;
}

// --- switching ---------------------------------------------------------------------------------------------------

void PreviewDialog::showWorking()
{
    m_isWorking = true;
    m_stop->setEnabled(true);
    m_progress->setRange(0, 0);
    showPreview();
}

void PreviewDialog::rowsSwitched()
{
    showWorking();
    m_pause->start();
}

void PreviewDialog::toggleSelected()
{
    const QModelIndex current = m_view->currentIndex();
    QVector<int> rows;
    // By ranges: a list of the selected rows takes long when all of many are.
    const QItemSelection selection = m_view->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(m_filter->mapToSource(m_filter->index(row, 0)).row());
    if (current.isValid() && !rows.isEmpty())
        m_model->setOn(rows, !m_model->row(m_filter->mapToSource(current).row()).isOn);
}

void PreviewDialog::switchKind(bool on)
{
    if (const PreviewRow *row = currentRow())
        m_model->setOnForAll(row->relation, on);
}
