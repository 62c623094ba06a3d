// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>
#include <QStringList>

class Admission;

/**
 * Runs reprepro on an admitted repository and waits for its end. The umask makes its files readable for a server.
 * `environment` has "NAME=value" entries, which are added to our own environment. For a refused repository nothing is
 * run, and the error output of the result tells the reason.
 */
ProcessResult
runReproOn(const Admission &admission, const QString &arguments, const QStringList &environment = {});
