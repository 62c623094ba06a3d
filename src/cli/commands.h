// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/terminal/exitcode.h"

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
ExitCode copy(const Invocation &invocation, Console &console);
ExitCode fetch(const Invocation &invocation, Console &console);
/** fetch with the option --missing. */
ExitCode fetchMissing(const Invocation &invocation, Console &console);
ExitCode check(const Invocation &invocation, Console &console);
ExitCode upgrade(const Invocation &invocation, Console &console);
ExitCode exportPackages(const Invocation &invocation, Console &console);
ExitCode import(const Invocation &invocation, Console &console);
ExitCode sign(const Invocation &invocation, Console &console);
ExitCode keys(const Invocation &invocation, Console &console);
ExitCode change(const Invocation &invocation, Console &console);
ExitCode history(const Invocation &invocation, Console &console);
ExitCode diff(const Invocation &invocation, Console &console);
ExitCode undo(const Invocation &invocation, Console &console);
ExitCode restore(const Invocation &invocation, Console &console);
ExitCode publish(const Invocation &invocation, Console &console);
ExitCode unpublish(const Invocation &invocation, Console &console);
ExitCode published(const Invocation &invocation, Console &console);
ExitCode sourceLine(const Invocation &invocation, Console &console);
} // namespace Commands
