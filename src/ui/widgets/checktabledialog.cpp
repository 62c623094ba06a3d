// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/checktabledialog.h"

#include "apt/versionorder.h"
#include "ui/widgets/checktablemodel.h"
#include "ui/widgets/elidedlabel.h"
#include "ui/widgets/tablelook.h"

#include <QAction>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <utility>

/** Sorts texts alphabetically, and versions as dpkg does: "10.0" comes after "9.0". */
class CheckTableDialog::SortedTable : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    QSet<int> versionColumns;
    QHash<int, QVector<qint64>> numbers; ///< by column; by row of the source

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override
    {
        const auto known = numbers.constFind(left.column());
        if (known != numbers.constEnd())
            return known->value(left.row()) < known->value(right.row());
        if (!versionColumns.contains(left.column()))
            return QSortFilterProxyModel::lessThan(left, right);
        return VersionOrder::compare(left.data().toString(), right.data().toString()) < 0;
    }
};

CheckTableDialog::CheckTableDialog(const QString &title,
                                   const QString &about,
                                   const QStringList &headers,
                                   QWidget *parent)
    : QDialog(parent)
    , m_model(new CheckTableModel(headers, this))
    , m_sorted(new SortedTable(this))
    , m_view(new QTreeView(this))
    , m_selectAllCheckBox(new QCheckBox(tr("&Select all"), this))
    , m_stateLabel(new ElidedLabel(this))
{
    setWindowTitle(title);
    auto *aboutLabel = new QLabel(about, this);
    aboutLabel->setTextFormat(Qt::PlainText);
    aboutLabel->setWordWrap(true);
    m_selectAllCheckBox->setObjectName(QStringLiteral("m_selectAllCheckBox"));
    m_stateLabel->setObjectName(QStringLiteral("m_stateLabel"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    m_buttons = buttons;
    m_confirmations << buttons->button(QDialogButtonBox::Ok);
    m_confirmations.first()->setDefault(true);
    buildView();

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(aboutLabel);
    layout->addWidget(m_view);
    layout->addWidget(m_selectAllCheckBox);
    layout->addWidget(m_stateLabel);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // The check box shows the state of the table. A click on a partially checked box would cycle through its own three
    // states.
    connect(m_selectAllCheckBox, &QCheckBox::clicked, this, [this] {
        m_model->setAllChecked(!m_model->areAllChecked());
    });
    connect(m_model, &CheckTableModel::checksChanged, this, &CheckTableDialog::updateWidgets);
    constexpr QSize Characters(110, 28);
    const QSize wished(Characters.width() * fontMetrics().averageCharWidth(),
                       Characters.height() * fontMetrics().lineSpacing());
    resize(wished.boundedTo(screen()->availableGeometry().size() * 9 / 10));
    m_view->setFocus();
    updateWidgets();
}

void CheckTableDialog::buildView()
{
    m_sorted->setSourceModel(m_model);
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    // Checking a row does not change the order.
    m_sorted->setDynamicSortFilter(false);
    m_view->setObjectName(QStringLiteral("m_tableView"));
    m_view->setModel(m_sorted);
    TableLook::apply(*m_view, windowTitle());
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setSortingEnabled(true);
    // Unsorted until the user chooses a column.
    m_view->sortByColumn(-1, Qt::AscendingOrder);
    auto *toggle = new QAction(m_view);
    toggle->setShortcut(Qt::Key_Space);
    toggle->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(toggle);
    connect(toggle, &QAction::triggered, this, &CheckTableDialog::toggleSelected);
}

void CheckTableDialog::setState(const QString &text)
{
    m_state = text;
    updateWidgets();
}

void CheckTableDialog::setVersionColumns(const QSet<int> &columns)
{
    m_sorted->versionColumns = columns;
}

void CheckTableDialog::setNumbers(int column, const QVector<qint64> &numbers)
{
    m_sorted->numbers.insert(column, numbers);
}

void CheckTableDialog::addBelow(QWidget *widget)
{
    auto *box = qobject_cast<QBoxLayout *>(layout());
    box->insertWidget(box->indexOf(m_buttons), widget);
}

void CheckTableDialog::setEmptyChoiceAllowed(bool allowed)
{
    m_emptyChoiceAllowed = allowed;
    updateWidgets();
}

QPushButton *CheckTableDialog::addConfirmation(const QString &text, const QString &name)
{
    QPushButton *button = m_buttons->addButton(text, QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setAutoDefault(false);
    m_confirmations << button;
    updateWidgets();
    return button;
}

void CheckTableDialog::fitColumns()
{
    constexpr int MaximumCharacters = 70;
    const int maximum = MaximumCharacters * fontMetrics().averageCharWidth();
    for (int column = 0; column < m_model->columnCount(); ++column) {
        m_view->resizeColumnToContents(column);
        m_view->setColumnWidth(column, qMin(m_view->columnWidth(column), maximum));
    }
    if (!m_view->currentIndex().isValid())
        m_view->setCurrentIndex(m_sorted->index(0, 0));
}

void CheckTableDialog::toggleSelected()
{
    QList<int> rows;
    const QModelIndexList selected = m_view->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(m_sorted->mapToSource(index).row());
    if (!rows.isEmpty())
        m_model->setChecked(rows, !m_model->isChecked(m_sorted->mapToSource(m_view->currentIndex()).row()));
}

void CheckTableDialog::updateWidgets()
{
    const int checked = m_model->checkedCount();
    const int all = m_model->rowCount();
    m_selectAllCheckBox->setEnabled(all > 0);
    m_selectAllCheckBox->setTristate(false);
    m_selectAllCheckBox->setCheckState(checked == 0               ? Qt::Unchecked
                                       : m_model->areAllChecked() ? Qt::Checked
                                                                  : Qt::PartiallyChecked);
    m_stateLabel->setFullText(m_state.isEmpty() ? tr("Selected: %1 of %2").arg(checked).arg(all) : m_state);
    for (QPushButton *button : std::as_const(m_confirmations))
        button->setEnabled(m_emptyChoiceAllowed || checked > 0);
}
