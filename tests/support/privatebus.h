// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/scopedvariable.h"

#include <QProcess>
#include <QTemporaryDir>

#include <optional>

/** A private message bus for a test. While it lives, all programs use it as the system bus. */
class PrivateBus
{
public:
    /** A failure ends the test program. */
    PrivateBus();
    ~PrivateBus();
    Q_DISABLE_COPY(PrivateBus)

    QString address() const { return m_address; }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    std::optional<ScopedVariable> m_variable;
};
