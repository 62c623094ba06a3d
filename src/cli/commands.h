// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/exitcode.h"

class Console;
struct Invocation;

/** What each command does. The operands and options have been checked by the table of commands. */
namespace Commands
{
ExitCode create(const Invocation &invocation, Console &console);
ExitCode show(const Invocation &invocation, Console &console);
ExitCode list(const Invocation &invocation, Console &console);
ExitCode add(const Invocation &invocation, Console &console);
ExitCode remove(const Invocation &invocation, Console &console);

/** Runs the command of the invocation. */
ExitCode run(const Invocation &invocation, Console &console);
} // namespace Commands
