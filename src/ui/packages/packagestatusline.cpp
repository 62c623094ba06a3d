// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagestatusline.h"

#include "core/dependsinfo.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QStyle>

namespace
{
/** Index of the counter for a state; -1 for a state without a counter. */
int slotOf(int state)
{
    return state >= DependUndefined && state <= DependSuccess ? state - DependUndefined : -1;
}
} // namespace

PackageStatusLine::PackageStatusLine(QWidget *parent)
    : QWidget(parent)
{
    const std::array<QString, States> names
        = {tr("Dependences not checked"), tr("Dependences not satisfied"), tr("Dependences satisfied")};
    const std::array<QString, States> objectNames = {
        QStringLiteral("m_undefinedLabel"), QStringLiteral("m_errorLabel"), QStringLiteral("m_successLabel")};

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < States; ++i) {
        m_icons[i] = new QLabel(this);
        m_icons[i]->setToolTip(names[i]);
        m_labels[i] = new QLabel(this);
        m_labels[i]->setObjectName(objectNames[i]);
        m_labels[i]->setToolTip(names[i]);
        layout->addWidget(m_icons[i]);
        layout->addWidget(m_labels[i]);
    }
    layout->addStretch();
    m_totalLabel = new QLabel(this);
    m_totalLabel->setObjectName(QStringLiteral("m_totalLabel"));
    layout->addWidget(m_totalLabel);
    updateIcons();
    showCounters();
}

void PackageStatusLine::setCounters(int undefined, int error, int success)
{
    m_counters = {qMax(0, undefined), qMax(0, error), qMax(0, success)};
    showCounters();
}

void PackageStatusLine::setTotal(int total)
{
    m_total = qMax(0, total);
    showCounters();
}

void PackageStatusLine::increase(int state)
{
    const int slot = slotOf(state);
    if (slot >= 0)
        ++m_counters[static_cast<std::size_t>(slot)];
    ++m_total;
    showCounters();
}

void PackageStatusLine::decrease(int state)
{
    const int slot = slotOf(state);
    if (slot >= 0) {
        int &value = m_counters[static_cast<std::size_t>(slot)];
        // The counter is 0 already, so no package was counted in this state; the total stays too.
        if (value == 0)
            return;
        --value;
    }
    m_total = qMax(0, m_total - 1);
    showCounters();
}

void PackageStatusLine::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange)
        updateIcons();
}

void PackageStatusLine::updateIcons()
{
    const std::array<QString, States> names = {
        QStringLiteral("dialog-question"), QStringLiteral("dialog-close"), QStringLiteral("dialog-ok-apply")};
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    for (std::size_t i = 0; i < States; ++i)
        m_icons[i]->setPixmap(QIcon::fromTheme(names[i]).pixmap(QSize(size, size)));
}

void PackageStatusLine::showCounters()
{
    for (std::size_t i = 0; i < States; ++i) {
        const QString number = QString::number(m_counters[i]);
        m_labels[i]->setText(number);
        m_labels[i]->setAccessibleName(m_labels[i]->toolTip() + QLatin1String(": ") + number);
    }
    m_totalLabel->setText(tr("Total: %1 package(s)").arg(m_total));
}
