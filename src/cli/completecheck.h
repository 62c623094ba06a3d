// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/exitcode.h"

#include <QString>

class Console;
struct Invocation;

/** The command "check" with --complete: what can really be installed. */
namespace CompleteCheck
{
/** Why these options cannot stand together; empty when they can. */
QString refusal(const Invocation &invocation);
ExitCode run(const Invocation &invocation, Console &console);
} // namespace CompleteCheck
