// SPDX-License-Identifier: GPL-3.0-or-later
#include "faultplan.h"

FaultPlan::FaultPlan()
{
    if (!m_file.open() || !m_file.resize(sizeof(FaultBoard)))
        qFatal("the faults cannot be planned");
    m_board = reinterpret_cast<FaultBoard *>(m_file.map(0, sizeof(FaultBoard)));
    qputenv(FaultBoard::Variable, QFile::encodeName(m_file.fileName()));
}

void FaultPlan::watch(const QString &folder)
{
    qstrncpy(m_board->folder, QFile::encodeName(folder).constData(), sizeof m_board->folder);
}

void FaultPlan::set(FaultBoard::Fault fault, int from, int until)
{
    m_board->main = 0;
    m_board->steps = 0;
    m_board->fault = fault;
    m_board->from = from;
    m_board->until = until;
}
