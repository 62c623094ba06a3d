// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/terminal/exitcode.h"

#include <QString>
#include <QStringList>
#include <QVector>

class Console;
struct Invocation;

/** An option of a command. */
struct CommandOption
{
    const char *name;
    const char *value; ///< the word for its value in the usage; null: the option has none
    const char *summary; ///< to be translated
    const char *choices = nullptr; ///< the values that it can have, separated by bars; null: any
};

/** What a word of the command line stands for, so that a shell can complete it. */
enum class Operand {
    None,
    Repository,
    File,
    PackageName,
    RepositoryAndNames, ///< a second repository, and then names of packages of the first one
    Port
};

/** A command of the program: what the user may write, and the words that explain it. */
struct CommandDescription
{
    const char *name;
    ExitCode (*run)(const Invocation &invocation, Console &console);
    const char *operands; ///< as the usage shows them
    int fewest; ///< operands
    int most; ///< operands; -1: any number
    Operand first; ///< what the first operand is
    Operand others; ///< what the others are
    const char *summary; ///< to be translated
    QVector<CommandOption> options;

    /** "add REPO FILE|FOLDER... [options]" */
    QString synopsis() const;
};

/** The one list of commands: the parser, the usage and the completion come from it, and the manual is checked by it. */
namespace CommandTable
{
const QVector<CommandDescription> &commands();
/** The options that every command has. */
const QVector<CommandOption> &commonOptions();
/** Null when there is no such command. */
const CommandDescription *find(const QString &name);
/** A text of the table in the user's language. */
QString translated(const char *text);
} // namespace CommandTable
