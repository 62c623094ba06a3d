// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>
#include <QStringList>

class Admission;

/**
 * Runs reprepro on an admitted repository and waits for it, with the umask that keeps what it writes readable for a
 * server. `environment` holds "NAME=value" entries that are set on top of our own environment. On a repository that is
 * refused nothing is run, and the error output says why.
 */
ProcessResult
runReproOn(const Admission &admission, const QString &arguments, const QStringList &environment = {});
