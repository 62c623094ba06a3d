// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>

#include <algorithm>

/**
 * How many packages a run of a program takes. The start of a run costs more than a package, but a stop or the progress
 * waits for the end of a run: so a run shall take about half a second.
 */
class RunSize
{
public:
    explicit RunSize(int packages = Smallest, int smallest = Smallest)
        : m_packages(packages)
        , m_smallest(smallest)
    { }

    int packages() const { return m_packages; }
    /** The runs of packages() begin. */
    void start() { m_timer.start(); }
    /** The runs have ended. */
    void adapt()
    {
        constexpr qint64 Wanted = 500; // milliseconds
        const qint64 wanted = m_packages * Wanted / std::max<qint64>(1, m_timer.elapsed());
        // A slow run can be an accident, and so can a fast one: the size changes by small steps.
        m_packages = static_cast<int>(std::clamp<qint64>(wanted, m_packages / 4, qint64(m_packages) * 4));
        m_packages = std::clamp(m_packages, m_smallest, Largest);
    }

    static constexpr int Smallest = 25;
    static constexpr int Largest = 400;

private:
    int m_packages;
    int m_smallest;
    QElapsedTimer m_timer;
};
