// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/filterline.h"

#include "core/countof.h"
#include "ui/widgets/tooltiptext.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QResizeEvent>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace
{
/** A button that removes a filter, and cuts its text when there is little room. */
class Chip : public QToolButton
{
public:
    Chip(const QString &text, QWidget *parent)
        : QToolButton(parent)
        , m_text(text)
    {
        setObjectName(QStringLiteral("m_filterChip"));
        setIcon(QIcon::fromTheme(QStringLiteral("window-close"),
                                 style()->standardIcon(QStyle::SP_TitleBarCloseButton)));
        setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        setText(text);
        m_wished = QToolButton::sizeHint();
        setAccessibleName(FilterLine::tr("Remove the filter %1").arg(text));
        setToolTip(toolTipText(accessibleName()));
    }
    QSize sizeHint() const override { return m_wished; }
    QSize minimumSizeHint() const override { return {iconSize().width() * 4, m_wished.height()}; }

protected:
    bool event(QEvent *event) override
    {
        // These keys belong to commands of the window too, one of which removes packages.
        if (event->type() == QEvent::ShortcutOverride
            && isForRemoval(static_cast<QKeyEvent *>(event)->key())) {
            event->accept();
            return true;
        }
        return QToolButton::event(event);
    }
    void resizeEvent(QResizeEvent *event) override
    {
        const int room = event->size().width() - (m_wished.width() - fontMetrics().horizontalAdvance(m_text));
        const bool isWhole = fontMetrics().horizontalAdvance(m_text) <= room;
        // With little room the value tells more than what it is a value of.
        const QString value = m_text.section(QLatin1String(": "), 1);
        setText(isWhole || value.isEmpty() ? fontMetrics().elidedText(m_text, Qt::ElideRight, room)
                                           : fontMetrics().elidedText(value, Qt::ElideRight, room));
        QToolButton::resizeEvent(event);
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (isForRemoval(event->key()))
            click();
        else
            QToolButton::keyPressEvent(event);
    }

private:
    static bool isForRemoval(int key)
    {
        return key == Qt::Key_Delete || key == Qt::Key_Backspace || key == Qt::Key_Return
               || key == Qt::Key_Enter;
    }

    QString m_text;
    QSize m_wished;
};
} // namespace

FilterLine::FilterLine(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout)
    , m_removeAll(new QToolButton(this))
    , m_count(new QLabel(this))
{
    m_removeAll->setObjectName(QStringLiteral("m_removeFiltersButton"));
    m_removeAll->setIcon(QIcon::fromTheme(QStringLiteral("edit-clear")));
    m_removeAll->setText(tr("Show all"));
    m_removeAll->setToolTip(tr("Remove all filters"));
    m_removeAll->setAutoRaise(true);
    m_removeAll->setFocusPolicy(Qt::StrongFocus);
    connect(m_removeAll, &QToolButton::clicked, this, &FilterLine::allRemoved);
    m_count->setObjectName(QStringLiteral("m_shownPackagesLabel"));
    m_layout->setSpacing(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, this) / 2);
    m_layout->addStretch();
    m_layout->addWidget(m_removeAll);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(m_layout->spacing());
    layout->addLayout(m_layout);
    layout->addWidget(m_count);
    setCount(-1, 0);
}

void FilterLine::setNeighbours(QWidget *before, QWidget *after)
{
    m_before = before;
    m_after = after;
    updateTabOrder();
}

void FilterLine::setFilters(const QVector<Filter> &filters)
{
    int focused = -1;
    for (int i = 0; i < m_chips.size(); ++i) {
        if (m_chips.at(i)->hasFocus())
            focused = i;
        m_chips.at(i)->hide();
        m_chips.at(i)->deleteLater(); // its click may have led here
    }
    m_chips.clear();
    for (const Filter &filter : filters) {
        auto *chip = new Chip(filter.text, this);
        connect(chip, &QToolButton::clicked, this, [this, id = filter.id] { Q_EMIT removed(id); });
        m_layout->insertWidget(countOf(m_chips), chip);
        chip->show(); // a hidden one could not take the focus
        m_chips.append(chip);
    }
    updateVisibility();
    updateTabOrder();
    if (focused < 0)
        return;
    // The focus stays where the user removes one after the other.
    if (!m_chips.isEmpty())
        m_chips.at(qMin(focused, m_chips.size() - 1))->setFocus();
    else if (m_before != nullptr)
        m_before->setFocus();
}

void FilterLine::setCount(int shown, int total)
{
    const QLocale locale;
    m_count->setText(shown < 0
                         ? QString()
                         : tr("%1 of %2 packages shown").arg(locale.toString(shown), locale.toString(total)));
    updateVisibility();
}

void FilterLine::updateVisibility()
{
    m_removeAll->setVisible(m_chips.size() > 1);
    m_count->setVisible(!m_count->text().isEmpty());
    setVisible(!m_chips.isEmpty() || !m_count->text().isEmpty());
}

void FilterLine::updateTabOrder()
{
    if (m_before == nullptr || m_after == nullptr)
        return;
    QWidget *last = m_before;
    for (QToolButton *chip : std::as_const(m_chips)) {
        setTabOrder(last, chip);
        last = chip;
    }
    setTabOrder(last, m_removeAll);
    setTabOrder(m_removeAll, m_after);
}
