// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sources/externalreposdialog.h"

#include "ui/dialogs/prompts.h"
#include "ui/sources/aptsourcesquery.h"
#include "ui/sources/externalreposmodel.h"
#include "ui/sources/externalreposourcedialog.h"
#include "ui/widgets/elidedlabel.h"
#include "ui/widgets/tablelook.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QPushButton>
#include <QScreen>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

ExternalReposDialog::ExternalReposDialog(const ExternalRepos &stored, Prompts &prompts, QWidget *parent)
    : QDialog(parent)
    , m_prompts(prompts)
    , m_model(new ExternalReposModel(stored, this))
    , m_view(new QTreeView(this))
    , m_emptyLabel(new QLabel(tr("No external repositories to show"), m_view->viewport()))
    , m_stateLabel(new ElidedLabel(this))
    , m_addButton(button(tr("&Add..."), QStringLiteral("m_addButton"), &ExternalReposDialog::addSource))
    , m_editButton(button(tr("&Edit..."), QStringLiteral("m_editButton"), &ExternalReposDialog::edit))
    , m_removeButton(
          button(tr("&Remove"), QStringLiteral("m_removeButton"), &ExternalReposDialog::removeSelected))
{
    setWindowTitle(tr("Edit external repos"));
    auto *about = new QLabel(
        tr("The repositories that are asked when dependencies are checked, packages are searched for and a "
           "repository is upgraded. The sources of the system itself stay as they are."),
        this);
    about->setWordWrap(true);
    m_stateLabel->setObjectName(QStringLiteral("m_stateLabel"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    // Enter in the list confirms the dialog and does not press a side button.
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buildView();

    auto *side = new QVBoxLayout;
    for (QPushButton *sideButton : {m_addButton, m_editButton, m_removeButton})
        side->addWidget(sideButton);
    side->addStretch();
    auto *middle = new QHBoxLayout;
    middle->addWidget(m_view);
    middle->addLayout(side);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(about);
    layout->addLayout(middle);
    layout->addWidget(m_stateLabel);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *query = new AptSourcesQuery(this);
    connect(query, &AptSourcesQuery::answered, this, &ExternalReposDialog::showAnswer);
    constexpr QSize Characters(110, 26);
    const QSize wished(Characters.width() * fontMetrics().averageCharWidth(),
                       Characters.height() * fontMetrics().lineSpacing());
    resize(wished.boundedTo(screen()->availableGeometry().size() * 9 / 10));
    m_stateLabel->setFullText(tr("Asking apt which repositories it knows..."));
    query->start();
    updateButtons();
}

const ExternalRepos &ExternalReposDialog::repos() const
{
    return m_model->repos();
}

// --- building ----------------------------------------------------------------------------------------------------

void ExternalReposDialog::buildView()
{
    constexpr int SourceWidth = 40; // characters; the smallest useful width
    constexpr int AliasWidth = 20;
    constexpr int Rows = 6;
    m_view->setObjectName(QStringLiteral("m_externalReposView"));
    m_view->setModel(m_model);
    TableLook::apply(*m_view, tr("External repositories"));
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // editAt() starts editing, because it depends on whether apt knows the source.
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    const int character = fontMetrics().averageCharWidth();
    QHeaderView *header = m_view->header();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    header->setSectionResizeMode(ExternalReposModel::SourceColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(ExternalReposModel::AliasColumn, QHeaderView::Interactive);
    header->resizeSection(ExternalReposModel::AliasColumn, AliasWidth * character);
    m_view->setMinimumSize(
        QSize((SourceWidth + AliasWidth) * character, Rows * fontMetrics().lineSpacing() * 3 / 2)
            .boundedTo(screen()->availableGeometry().size() / 2));
    TableLook::placeOver(*m_view, m_emptyLabel);

    addKey(Qt::Key_Insert, &ExternalReposDialog::addSource);
    addKey(Qt::Key_F2, &ExternalReposDialog::edit);
    addKey(Qt::Key_Delete, &ExternalReposDialog::removeSelected);
    connect(m_view, &QTreeView::doubleClicked, this, &ExternalReposDialog::editAt);
    connect(m_view->selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &ExternalReposDialog::updateButtons);
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_model, change, this, &ExternalReposDialog::updateButtons);
}

QPushButton *
ExternalReposDialog::button(const QString &text, const QString &name, void (ExternalReposDialog::*slot)())
{
    auto *made = new QPushButton(text, this);
    made->setObjectName(name);
    connect(made, &QPushButton::clicked, this, slot);
    return made;
}

void ExternalReposDialog::addKey(int key, void (ExternalReposDialog::*slot)())
{
    auto *action = new QAction(m_view);
    action->setShortcut(key);
    // For the list only: in the editor of an alias the key Delete has another meaning.
    action->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(action);
    connect(action, &QAction::triggered, this, slot);
}

// --- apt ---------------------------------------------------------------------------------------------------------

void ExternalReposDialog::showAnswer(const QStringList &sources, const QString &failure)
{
    if (failure.isEmpty()) {
        m_stateLabel->setFullText(QString());
        m_model->merge(sources);
        if (!m_view->currentIndex().isValid())
            m_view->setCurrentIndex(m_model->index(0, ExternalReposModel::SourceColumn));
    } else {
        m_stateLabel->setFullText(
            tr("apt does not say which repositories it knows; only stored ones are shown. %1").arg(failure));
    }
    updateButtons();
}

// --- editing -----------------------------------------------------------------------------------------------------

QList<int> ExternalReposDialog::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList indexes = m_view->selectionModel()->selectedRows();
    for (const QModelIndex &index : indexes)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ExternalReposDialog::updateButtons()
{
    const QList<int> rows = selectedRows();
    m_editButton->setEnabled(rows.size() == 1);
    const bool removable
        = std::all_of(rows.cbegin(), rows.cend(), [this](int row) { return m_model->isOwn(row); });
    m_removeButton->setEnabled(!rows.isEmpty() && removable);
    m_removeButton->setToolTip(
        removable ? QString() : tr("What apt knows from the sources of the system cannot be removed here."));
    m_emptyLabel->setVisible(m_model->rowCount() == 0);
}

void ExternalReposDialog::addSource()
{
    editSource(-1);
}

void ExternalReposDialog::edit()
{
    if (selectedRows().size() == 1)
        editAt(m_view->currentIndex());
}

void ExternalReposDialog::editAt(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    if (index.column() == ExternalReposModel::SourceColumn && m_model->isOwn(index.row())) {
        editSource(index.row());
        return;
    }
    const QModelIndex alias = index.siblingAtColumn(ExternalReposModel::AliasColumn);
    m_view->setCurrentIndex(alias);
    m_view->edit(alias);
}

void ExternalReposDialog::editSource(int row)
{
    // Persistent, because rows move when apt answers meanwhile.
    const QPersistentModelIndex edited = row < 0 ? QModelIndex() : m_model->index(row, 0);
    const auto check
        = [this, &edited](const QString &source) { return repos().refusalInList(source, edited.row()); };
    const QString alias = edited.sibling(row, ExternalReposModel::AliasColumn).data().toString();
    ExternalRepoSourceDialog dialog(edited.data(Qt::EditRole).toString(), alias, check, this);
    if (m_prompts.run(dialog) != QDialog::Accepted)
        return;
    const QString refusal = check(dialog.source());
    if (!refusal.isEmpty()) {
        m_prompts.warn(windowTitle(), refusal, this);
        return;
    }
    const int written = m_model->setSource(dialog.source(), edited.row());
    if (written < 0) {
        m_prompts.warn(
            windowTitle(),
            tr("apt knows this repository from the sources of the system, so it cannot be changed here."),
            this);
        return;
    }
    m_model->setData(m_model->index(written, ExternalReposModel::AliasColumn), dialog.alias(), Qt::EditRole);
    m_view->setCurrentIndex(m_model->index(written, ExternalReposModel::SourceColumn));
}

void ExternalReposDialog::removeSelected()
{
    const QList<int> rows = selectedRows();
    if (!m_removeButton->isEnabled())
        return;
    for (auto row = rows.crbegin(); row != rows.crend(); ++row)
        m_model->removeOwn(*row);
}

void ExternalReposDialog::accept()
{
    // Ends the editing of an alias, so that its text is used.
    if (QWidget *focused = focusWidget())
        focused->clearFocus();
    QDialog::accept();
}
