// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct CommandDescription;

/** The texts about the program itself, made from the table of commands. */
namespace Usage
{
/** All commands, a line each, and the options that all have. */
QString ofProgram();
QString ofCommand(const CommandDescription &command);
/** A script that completes our command lines in this shell (bash or zsh); empty for another one. */
QString completion(const QString &shell);
} // namespace Usage
