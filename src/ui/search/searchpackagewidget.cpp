// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/searchpackagewidget.h"

#include "apt/aptcommands.h"
#include "core/settingskeys.h"
#include "ui/search/addedsourcesbar.h"
#include "ui/search/foundpackagesproxy.h"
#include "ui/search/packagesearcher.h"
#include "ui/widgets/delayedlineedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QSet>
#include <QSettings>
#include <QTableView>

#include <algorithm>
#include <utility>

SearchPackageWidget::SearchPackageWidget(const PackageFilter &filter,
                                         const FoundPackagesModel::AliasLookup &aliases,
                                         const FoundPackagesModel::PresentLookup &present,
                                         const AddedSources &added,
                                         QWidget *parent)
    : QWidget(parent)
    , m_searcher(std::make_unique<PackageSearcher>(filter, added))
    , m_searchEdit(new DelayedLineEdit(this))
    , m_descriptionsCheckBox(new QCheckBox(tr("Search &descriptions too"), this))
    , m_busyBar(new QProgressBar(this))
    , m_statusLabel(new QLabel(this))
    , m_architectureComboBox(new QComboBox(this))
    , m_repositoryComboBox(new QComboBox(this))
    , m_packagesTable(new QTableView(this))
    , m_addedSources(new AddedSourcesBar(added, this))
    , m_model(new FoundPackagesModel(aliases, present, this))
    , m_proxy(new FoundPackagesProxy(this))
{
    layOut();
    connectParts();
    setBusy(false);
    updateTableWidget({});
    m_statusLabel->clear();
}

SearchPackageWidget::~SearchPackageWidget() = default;

void SearchPackageWidget::layOut()
{
    m_searchEdit->setObjectName(QStringLiteral("m_searchEdit"));
    m_searchEdit->setPlaceholderText(tr("Start typing the pacakge name here..."));
    m_searchEdit->setClearButtonEnabled(true);
    m_searchEdit->setAccessibleName(tr("Package name"));
    m_searchEdit->installEventFilter(this);

    // It has no range, because the number of items is unknown. While hidden it keeps its space, so that the table keeps
    // its height.
    m_busyBar->setObjectName(QStringLiteral("m_busyBar"));
    m_busyBar->setRange(0, 0);
    m_busyBar->setTextVisible(false);
    m_busyBar->setAccessibleName(tr("Searching"));
    constexpr int BusyWidth = 8; // in characters
    m_busyBar->setMaximumSize(fontMetrics().averageCharWidth() * BusyWidth, fontMetrics().height());
    QSizePolicy policy = m_busyBar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_busyBar->setSizePolicy(policy);

    m_descriptionsCheckBox->setObjectName(QStringLiteral("m_descriptionsCheckBox"));
    m_descriptionsCheckBox->setToolTip(
        tr("Finds the packages with each of the words in the name or in the short description"));
    m_descriptionsCheckBox->setChecked(QSettings().value(SettingsKey::SearchDescriptions).toBool());
    m_searcher->setInDescriptions(m_descriptionsCheckBox->isChecked());

    m_statusLabel->setObjectName(QStringLiteral("m_statusLabel"));
    m_statusLabel->setTextFormat(Qt::PlainText);
    m_statusLabel->setWordWrap(true);

    m_proxy->setSourceModel(m_model);
    m_packagesTable->setObjectName(QStringLiteral("m_packagesTable"));
    m_packagesTable->setAccessibleName(tr("Packages found"));
    m_packagesTable->setModel(m_proxy);
    // The names of sources are long.
    m_packagesTable->horizontalHeader()->moveSection(FoundPackagesModel::PresentColumn,
                                                     FoundPackagesModel::RepositoryColumn);
    m_packagesTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_packagesTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_packagesTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_packagesTable->setAlternatingRowColors(true);
    m_packagesTable->setShowGrid(false);
    m_packagesTable->setWordWrap(false);
    m_packagesTable->setTabKeyNavigation(false);
    m_packagesTable->setSortingEnabled(true);
    m_packagesTable->sortByColumn(FoundPackagesModel::PackageColumn, Qt::AscendingOrder);
    m_packagesTable->verticalHeader()->hide();
    m_packagesTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    m_packagesTable->horizontalHeader()->setStretchLastSection(true);
    m_packagesTable->horizontalHeader()->setHighlightSections(false);
    m_packagesTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    const auto caption = [this](const QString &text, QComboBox *filter, const QString &name) {
        auto *label = new QLabel(text, this);
        label->setBuddy(filter);
        filter->setObjectName(name);
        filter->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        return label;
    };
    auto *filters = new QHBoxLayout;
    filters->addWidget(
        caption(tr("&Architecture:"), m_architectureComboBox, QStringLiteral("m_architectureComboBox")));
    filters->addWidget(m_architectureComboBox);
    filters->addWidget(
        caption(tr("&Repository:"), m_repositoryComboBox, QStringLiteral("m_repositoryComboBox")));
    // An origin can be longer than the width of the window.
    m_repositoryComboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    filters->addWidget(m_repositoryComboBox, 1);

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_searchEdit, 0, 0, 1, 2);
    layout->addWidget(m_descriptionsCheckBox, 1, 0, 1, 2);
    layout->addLayout(filters, 2, 0, 1, 2);
    layout->addWidget(m_packagesTable, 3, 0, 1, 2);
    layout->addWidget(m_statusLabel, 4, 0);
    layout->addWidget(m_busyBar, 4, 1, Qt::AlignTop);
    layout->addWidget(m_addedSources, 5, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    setFocusProxy(m_searchEdit);
}

void SearchPackageWidget::connectParts()
{
    connect(m_searchEdit, &QLineEdit::textEdited, this, &SearchPackageWidget::textEdited);
    connect(m_searchEdit, &DelayedLineEdit::textEditingStoped, this, &SearchPackageWidget::search);
    connect(m_descriptionsCheckBox, &QCheckBox::toggled, this, [this](bool isOn) {
        QSettings().setValue(SettingsKey::SearchDescriptions, isOn);
        m_searcher->setInDescriptions(isOn);
        search(m_searchEdit->text());
    });
    connect(m_searcher.get(), &PackageSearcher::answered, this, [this](const QString &pattern) {
        m_foundPattern = pattern;
        m_failure.clear();
    });
    connect(m_searcher.get(),
            &PackageSearcher::searchFailed,
            this,
            [this](const QString &text, const QString &detailedText) {
                m_failure = QStringLiteral("%1: %2").arg(text, detailedText.trimmed());
            });
    connect(m_searcher.get(), &PackageSearcher::newPackageFound, this, &SearchPackageWidget::showResult);

    connect(m_addedSources, &AddedSourcesBar::listsChanged, this, &SearchPackageWidget::repeat);

    const auto filterBy = [this](QComboBox *filter, FoundPackagesModel::Column column) {
        connect(filter, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, filter, column] {
            m_proxy->setWanted(column, filter->currentData().toString());
            showCount();
        });
    };
    filterBy(m_architectureComboBox, FoundPackagesModel::ArchitectureColumn);
    filterBy(m_repositoryComboBox, FoundPackagesModel::RepositoryColumn);

    connect(m_packagesTable->selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &SearchPackageWidget::selectionChanged);
    // selectionChanged() is not emitted when the rows are replaced, although the selection is lost.
    connect(m_model, &QAbstractItemModel::modelReset, this, &SearchPackageWidget::selectionChanged);
    connect(m_packagesTable, &QTableView::activated, this, &SearchPackageWidget::packagesChosen);
}

// --- searching -----------------------------------------------------------------------------------------------------

void SearchPackageWidget::textEdited()
{
    m_searcher->cancel();
    m_wantedPattern.clear();
    m_shownPattern.clear();
    m_failure.clear();
    setBusy(false);
    m_statusLabel->clear();
}

void SearchPackageWidget::search(const QString &text)
{
    // Names have no capital letters, and a pasted text often has blanks around it.
    const QString pattern = text.simplified().toLower();
    const bool possible
        = m_descriptionsCheckBox->isChecked() ? !pattern.isEmpty() : AptCommands::isSearchPrefix(pattern);
    m_wantedPattern = possible ? pattern : QString();
    m_keepsSelection = false;
    setBusy(possible);
    if (possible) {
        m_statusLabel->setText(tr("Searching..."));
        m_searcher->startSearch(pattern);
        return;
    }
    m_searcher->cancel();
    updateTableWidget({});
    m_statusLabel->setText(
        pattern.isEmpty() ? QString() : tr("The name of a package cannot begin with \"%1\"").arg(text));
}

void SearchPackageWidget::showResult(const QList<PackageInfo> &packages)
{
    // The result may be of an earlier text.
    if (m_wantedPattern.isEmpty() || m_foundPattern != m_wantedPattern)
        return;
    m_shownPattern = m_wantedPattern;
    m_wantedPattern.clear();
    setBusy(false);
    const auto selected = m_keepsSelection ? selectedPackages() : QList<PackageInfo>();
    updateTableWidget(packages);
    select(selected);
}

void SearchPackageWidget::repeat()
{
    // A text that is being typed is searched when the typing has ended.
    if (m_wantedPattern.isEmpty() && m_shownPattern.isEmpty())
        return;
    const bool keepsSelection = !m_shownPattern.isEmpty() && (m_wantedPattern.isEmpty() || m_keepsSelection);
    search(m_searchEdit->text());
    m_keepsSelection = keepsSelection;
}

void SearchPackageWidget::select(const QList<PackageInfo> &packages)
{
    const auto keyOf = [](const PackageInfo &package) -> QString {
        return QStringList{package.name, package.version, package.architecture, package.repository}.join(
            QLatin1Char('\n'));
    };
    QSet<QString> wanted;
    for (const PackageInfo &package : packages)
        wanted.insert(keyOf(package));
    QItemSelection selection;
    int begin = -1; // of the rows that are selected one below the other
    for (int row = 0; row <= m_proxy->rowCount() && !wanted.isEmpty(); ++row) {
        const bool isWanted = row < m_proxy->rowCount()
                              && wanted.contains(keyOf(
                                  m_model->packageAt(m_proxy->mapToSource(m_proxy->index(row, 0)).row())));
        if (isWanted && begin < 0)
            begin = row;
        if (isWanted || begin < 0)
            continue;
        selection.select(m_proxy->index(begin, 0), m_proxy->index(row - 1, 0));
        begin = -1;
    }
    if (selection.isEmpty())
        return;
    QItemSelectionModel *model = m_packagesTable->selectionModel();
    model->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const QModelIndex first = selection.constFirst().topLeft();
    model->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    m_packagesTable->scrollTo(first);
}

void SearchPackageWidget::updateTableWidget(const QList<PackageInfo> &packages)
{
    m_model->setPackages(packages);
    refill(m_architectureComboBox, FoundPackagesModel::ArchitectureColumn);
    refill(m_repositoryComboBox, FoundPackagesModel::RepositoryColumn);
    constexpr int RowsToMeasure = 200;
    m_packagesTable->horizontalHeader()->setResizeContentsPrecision(RowsToMeasure);
    m_packagesTable->resizeColumnsToContents();
    showCount();
}

void SearchPackageWidget::refill(QComboBox *filter, FoundPackagesModel::Column column)
{
    const QString chosen = filter->currentData().toString();
    filter->clear();
    filter->addItem(tr("All"));
    const QStringList values = m_model->values(column);
    for (const QString &value : values)
        filter->addItem(value, value);
    // The last choice stays for the next result if it is available.
    filter->setCurrentIndex(std::max(0, filter->findData(chosen)));
    filter->setEnabled(values.size() > 1);
}

void SearchPackageWidget::setBusy(bool busy)
{
    m_busyBar->setVisible(busy);
}

void SearchPackageWidget::showCount()
{
    const int all = m_model->rowCount();
    if (!m_failure.isEmpty() && all == 0) {
        m_statusLabel->setText(m_failure);
        return;
    }
    const int shown = m_proxy->rowCount();
    QString text = all == 0 ? tr("No packages found") : tr("%n package(s)", nullptr, all);
    if (shown != all)
        text = tr("%1 of %n package(s)", nullptr, all).arg(shown);
    if (!m_failure.isEmpty())
        text += QLatin1String(". ") + m_failure;
    m_statusLabel->setText(text);
}

// --- choosing ------------------------------------------------------------------------------------------------------

QList<PackageInfo> SearchPackageWidget::selectedPackages() const
{
    QModelIndexList rows = m_packagesTable->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QList<PackageInfo> packages;
    for (const QModelIndex &row : std::as_const(rows))
        packages.append(m_model->packageAt(m_proxy->mapToSource(row).row()));
    return packages;
}

QWidget *SearchPackageWidget::searchField() const
{
    return m_searchEdit;
}

bool SearchPackageWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_searchEdit && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down && m_proxy->rowCount() > 0) {
        if (!m_packagesTable->selectionModel()->hasSelection())
            m_packagesTable->selectRow(std::max(0, m_packagesTable->currentIndex().row()));
        m_packagesTable->setFocus(Qt::TabFocusReason);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
