// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/installsystem.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

/** An apt that knows the packages of one index and a system without any package; it only tells what it would do. */
class AptSimulation
{
public:
    /** A failure ends the test program. */
    AptSimulation(const QByteArray &index, const InstallSystem &system);

    /**
     * Whether apt would install these packages, each "NAME VERSION ARCHITECTURE", together. apt takes only the newest
     * version of what it installs beside them.
     */
    bool installs(const QStringList &packages) const;

private:
    QTemporaryDir m_folder;
    QString m_native;
};
