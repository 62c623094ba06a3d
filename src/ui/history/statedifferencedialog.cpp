// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/history/statedifferencedialog.h"

#include "core/runinbackground.h"
#include "engine/history/historydifference.h"
#include "ui/history/changesmodel.h"
#include "ui/history/historytext.h"
#include "ui/widgets/delayedlineedit.h"
#include "ui/widgets/mnemonics.h"
#include "ui/widgets/tablelook.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <utility>

StateDifferenceDialog::StateDifferenceDialog(const QVector<RestorePoint> &points,
                                             int from,
                                             int to,
                                             QWidget *parent)
    : QDialog(parent)
    , m_points(points)
    , m_model(new ChangesModel(this))
    , m_from(stateBox(QStringLiteral("m_fromBox"), from))
    , m_to(stateBox(QStringLiteral("m_toBox"), to))
    , m_counts(new QLabel(this))
    , m_empty(new QLabel(this))
{
    setWindowTitle(tr("Difference"));
    auto *filter = new DelayedLineEdit(this);
    filter->setClearButtonEnabled(true);
    auto *form = new QFormLayout;
    form->addRow(tr("From the state"), m_from);
    form->addRow(tr("To the state"), m_to);
    form->addRow(tr("Package name"), filter);
    auto *view = new QTreeView(this);
    view->setObjectName(QStringLiteral("m_differenceView"));
    view->setModel(m_model);
    TableLook::apply(*view, tr("Changes between the states"));
    TableLook::placeOver(*view, m_empty);
    const int character = fontMetrics().averageCharWidth();
    constexpr std::array<int, ChangesModel::ColumnCount> Characters = {30, 14, 14, 14, 20, 20};
    for (int column = 0; column < ChangesModel::ColumnCount; ++column)
        view->header()->resizeSection(column, Characters.at(size_t(column)) * character);
    m_counts->setObjectName(QStringLiteral("m_countsLabel"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(view, 1);
    layout->addWidget(m_counts);
    layout->addWidget(buttons);
    QWidget::setTabOrder(m_from, m_to);
    QWidget::setTabOrder(m_to, filter);
    Mnemonics::markForm(this);

    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_from, qOverload<int>(&QComboBox::currentIndexChanged), this, &StateDifferenceDialog::compare);
    connect(m_to, qOverload<int>(&QComboBox::currentIndexChanged), this, &StateDifferenceDialog::compare);
    connect(filter, &DelayedLineEdit::textEditingStoped, m_model, &ChangesModel::setFilter);
    connect(filter, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.isEmpty())
            m_model->setFilter(text);
    });
    constexpr int Width = 120;
    constexpr int Height = 28;
    resize(Width * character, Height * fontMetrics().lineSpacing());
    compare();
}

QComboBox *StateDifferenceDialog::stateBox(const QString &name, int state)
{
    constexpr int LeastCharacters = 30;
    auto *box = new QComboBox(this);
    box->setObjectName(name);
    // The words of a job can be long; the list shows them whole.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(LeastCharacters);
    box->addItem(tr("Now"), HistoryDifference::Now);
    for (const RestorePoint &point : std::as_const(m_points))
        box->addItem(HistoryText::before(point), point.number);
    box->setCurrentIndex(qMax(0, box->findData(state)));
    return box;
}

void StateDifferenceDialog::compare()
{
    const int comparison = ++m_comparison;
    const int from = m_from->currentData().toInt();
    const int to = m_to->currentData().toInt();
    m_model->setChanges({});
    m_counts->clear();
    m_empty->setText(tr("Comparing..."));
    m_empty->show();
    const auto find = [points = m_points, from, to] {
        auto changes = HistoryDifference::between(points, from, to);
        if (changes) {
            std::sort(changes->begin(), changes->end(), [](const PackageChange &a, const PackageChange &b) {
                return a.name == b.name ? a.architecture < b.architecture : a.name < b.name;
            });
        }
        return changes;
    };
    runInBackground(this, find, [this, comparison](const std::optional<QVector<PackageChange>> &changes) {
        if (comparison != m_comparison)
            return;
        if (!changes) {
            m_empty->setText(tr("A record between these states is missing or damaged."));
            return;
        }
        m_model->setChanges(*changes);
        if (!changes->isEmpty())
            m_counts->setText(HistoryText::counts(HistoryText::Counts::of(*changes)));
        m_empty->setText(tr("The packages are the same."));
        m_empty->setVisible(changes->isEmpty());
    });
}
