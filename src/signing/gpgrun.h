// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

/** Runs gpg without a terminal and waits for its end, half a minute at most: not for the interface thread. */
ProcessResult runGpg(const QStringList &arguments);
