// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>
#include <QStringList>

/**
 * Runs reprepro on the repository at `path` and waits for it, with the umask that keeps what it writes readable for
 * a server. `environment` holds "NAME=value" entries that are set on top of our own environment.
 */
ProcessResult runReproOn(const QString &path, const QString &arguments, const QStringList &environment = {});
