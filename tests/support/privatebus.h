// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/scopedvariable.h"

#include <QProcess>
#include <QTemporaryDir>

#include <optional>

/** A message bus of the test's own; as long as it lives it is what everything takes for the system's bus. */
class PrivateBus
{
public:
    /** Fails the program on trouble. */
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
