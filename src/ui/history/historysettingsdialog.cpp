// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/history/historysettingsdialog.h"

#include "core/countof.h"
#include "ui/widgets/mnemonics.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>

namespace
{
constexpr qint64 MiB = qint64(1) << 20;
constexpr int MostPoints = 1000;
constexpr int MostDays = 3650;
constexpr int MostMiB = 1 << 20;
} // namespace

HistorySettingsDialog::HistorySettingsDialog(const HistoryLimits &limits, QWidget *parent)
    : QDialog(parent)
    , m_limits(limits)
    , m_isOn(new QCheckBox(tr("Keep states to go back to"), this))
    , m_points(spinBox(QStringLiteral("m_historyPoints"), 1, MostPoints))
    , m_days(spinBox(QStringLiteral("m_historyDays"), 0, MostDays))
    , m_size(spinBox(QStringLiteral("m_historySize"), 1, MostMiB))
    , m_taken(new QLabel(this))
    , m_freed(new QLabel(this))
    , m_prune(new QPushButton(tr("Prune now"), this))
{
    setWindowTitle(tr("History"));
    m_isOn->setObjectName(QStringLiteral("m_historyIsOn"));
    m_isOn->setToolTip(tr("Before each change of a repository, its state is kept for a way back."));
    m_isOn->setChecked(limits.isOn);
    m_points->setValue(limits.points);
    m_days->setSpecialValueText(tr("any age"));
    m_days->setValue(limits.days);
    m_size->setSuffix(tr(" MiB"));
    m_size->setValue(int(qBound(qint64(1), limits.size / MiB, qint64(MostMiB))));
    m_prune->setObjectName(QStringLiteral("m_pruneButton"));
    m_prune->setAutoDefault(false);
    for (QLabel *label : {m_taken, m_freed})
        label->setTextFormat(Qt::PlainText);
    m_freed->setObjectName(QStringLiteral("m_freedLabel"));

    auto *form = new QFormLayout;
    form->addRow(m_isOn);
    form->addRow(tr("Restore points at most"), m_points);
    form->addRow(tr("Days at most"), m_days);
    form->addRow(tr("Size at most"), m_size);
    // As a widget, the caption of a text gets no shortcut key.
    form->addRow(new QLabel(tr("This repository:"), this), m_taken);
    form->addRow(new QLabel(tr("Pruning frees:"), this), m_freed);
    auto *pruneRow = new QHBoxLayout;
    pruneRow->addStretch();
    pruneRow->addWidget(m_prune);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(pruneRow);
    layout->addStretch();
    layout->addWidget(buttons);
    Mnemonics::markForm(this);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (const QSpinBox *box : {m_points, m_days, m_size})
        connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &HistorySettingsDialog::update);
    connect(m_prune, &QPushButton::clicked, this, [this] { Q_EMIT pruneRequested(m_pruning); });
    update();
}

QSpinBox *HistorySettingsDialog::spinBox(const QString &name, int least, int most)
{
    auto *box = new QSpinBox(this);
    box->setObjectName(name);
    box->setRange(least, most);
    return box;
}

void HistorySettingsDialog::setHistory(const std::optional<RepositoryHistory> &history)
{
    m_history = history;
    update();
}

void HistorySettingsDialog::setObstacle(const QString &obstacle)
{
    m_obstacle = obstacle;
    update();
}

HistoryLimits HistorySettingsDialog::limits() const
{
    HistoryLimits limits = m_limits;
    limits.isOn = m_isOn->isChecked();
    limits.points = m_points->value();
    limits.days = m_days->value();
    // A size that is no whole number of MiB stays when the user does not change it.
    if (m_size->value() != int(qBound(qint64(1), limits.size / MiB, qint64(MostMiB))))
        limits.size = m_size->value() * MiB;
    return limits;
}

void HistorySettingsDialog::update()
{
    const QLocale locale;
    m_pruning = m_history ? RepositoryHistory::toPrune(*m_history, limits(), QDateTime::currentDateTimeUtc())
                          : RepositoryHistory::Pruning();
    m_taken->setText(m_history ? tr("%n restore point(s), %1", nullptr, countOf(m_history->points))
                                     .arg(locale.formattedDataSize(m_history->size))
                               : tr("not known"));
    m_freed->setText(!m_history ? tr("not known")
                     : m_pruning.isEmpty()
                         ? tr("nothing")
                         : tr("%1 (%n restore point(s))", nullptr, countOf(m_pruning.points))
                               .arg(locale.formattedDataSize(m_pruning.freed)));
    m_prune->setEnabled(m_obstacle.isEmpty() && !m_pruning.isEmpty());
    m_prune->setToolTip(!m_obstacle.isEmpty() ? m_obstacle
                        : m_pruning.isEmpty() ? tr("Nothing is more than the limits allow.")
                                              : tr("Deletes the oldest restore points of this repository."));
}
