// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

/** Runs gpg without a terminal, for half a minute at most. Waits for it: not for the interface thread. */
ProcessResult runGpg(const QStringList &arguments);
