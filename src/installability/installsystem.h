// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** The architectures of a system on which packages are to be installed, as dpkg knows them. */
struct InstallSystem
{
    QString native; ///< never empty and never "all"
    QStringList foreign; ///< as added by "dpkg --add-architecture"
};
