// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

/** Measures the longest time between two iterations of the event loop. It takes hardly any processor time itself. */
class StallMeter : public QObject
{
public:
    StallMeter()
    {
        m_clock.start();
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        connect(&m_timer, &QTimer::timeout, this, [this] {
            m_longest = std::max(m_longest, m_clock.nsecsElapsed());
            m_clock.restart();
        });
        m_timer.start();
    }
    double longestMilliseconds() const { return static_cast<double>(m_longest) / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};
