// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/control/joberrors.h"

#include "engine/control/jobcontrol.h"
#include "engine/control/jobsignals.h"

void JobErrors::critical(const QString &text,
                         const QString &details,
                         RepoEnums::ErrorType type,
                         RepoEnums::ErrorCause cause)
{
    m_isAny = m_isAny || type == RepoEnums::CRITICAL;
    Q_EMIT m_signals.critical(text, details, type, cause);
}

void JobErrors::runFailed(const QString &text, const QString &details)
{
    if (!m_control.isLockedOut())
        critical(text, details);
}
