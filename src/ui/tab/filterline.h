// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QToolButton;

/**
 * The filters of the tree in one line, each a chip that can be read and removed, and below it how many packages are
 * shown. Chips share the width; a long text is cut and stands whole in the tool tip.
 */
class FilterLine : public QWidget
{
    Q_OBJECT
public:
    /** A filter: what the caller knows it by, and what the user reads. */
    struct Filter
    {
        int id = 0;
        QString text;
    };

    explicit FilterLine(QWidget *parent = nullptr);

    /** The parts stand between these two when the user goes on by Tab. */
    void setNeighbours(QWidget *before, QWidget *after);
    void setFilters(const QVector<Filter> &filters);
    /** Shows that `shown` of `total` packages are shown; nothing when `shown` is negative. */
    void setCount(int shown, int total);

Q_SIGNALS:
    void removed(int id);
    void allRemoved();

private:
    QHBoxLayout *m_layout;
    QVector<QToolButton *> m_chips;
    QToolButton *m_removeAll;
    QLabel *m_count;
    QWidget *m_before = nullptr;
    QWidget *m_after = nullptr;

    void updateVisibility();
    void updateTabOrder();
};
