// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "faultboard.h"

#include <QTemporaryFile>

#include <climits>

/** The fault that the next programs under test meet. */
class FaultPlan
{
public:
    FaultPlan();
    Q_DISABLE_COPY(FaultPlan)

    /** Steps count below this folder. */
    void watch(const QString &folder);
    /** The fault comes with the step `from`, and a full disk has room again from the step `until` on. */
    void set(FaultBoard::Fault fault, int from = INT_MAX, int until = INT_MAX);
    /** Steps since set(). */
    int steps() const { return m_board->steps; }

private:
    QTemporaryFile m_file;
    FaultBoard *m_board = nullptr;
};
