// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <array>

class QLabel;

/** The line below the package tree: the number of packages, and the number in each dependency state. */
class PackageStatusLine : public QWidget
{
    Q_OBJECT
public:
    explicit PackageStatusLine(QWidget *parent = nullptr);

    void setCounters(int undefined, int error, int success);
    void setTotal(int total);
    /** Adds a package in this state (a DependStatus). A package without a check result counts only in the total. */
    void increase(int state);
    /** Removes a package in this state; no counter becomes negative. */
    void decrease(int state);

protected:
    void changeEvent(QEvent *event) override;

private:
    static constexpr int States = 3;
    std::array<int, States> m_counters{};
    int m_total = 0;
    std::array<QLabel *, States> m_icons{};
    std::array<QLabel *, States> m_labels{};
    QLabel *m_totalLabel = nullptr;

    void updateIcons();
    void showCounters();
};
