// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** How a command has ended, as scripts see it. The numbers are documented and never change. */
enum class ExitCode {
    Done = 0,
    Findings
    = 1, ///< done, with findings: a check that found something, or files that were refused while others went in
    Usage = 2, ///< the arguments are wrong
    Failed = 3, ///< nothing was changed, as far as the program knows
    Locked = 4, ///< another job works on the repository
    Stopped = 5 ///< by the user; what was done before stays
};
