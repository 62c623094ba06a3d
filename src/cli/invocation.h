// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/commandtable.h"

#include <QHash>
#include <QString>
#include <QStringList>

/** One call of the program, read by the table of commands. */
struct Invocation
{
    const CommandDescription *command = nullptr; ///< null with an error, and where only help is asked for
    QStringList operands;
    QHash<QString, QStringList> options; ///< the values by the names of the options that were given
    bool wantsHelp = false;
    bool wantsVersion = false;
    QString error; ///< text for the user about wrong arguments; empty when they are right

    /** `arguments` without the name of the program. */
    static Invocation parse(const QStringList &arguments);

    bool has(const char *option) const { return options.contains(QLatin1String(option)); }
    /** The last value that was given; empty without one. */
    QString value(const char *option) const
    {
        return values(option).isEmpty() ? QString() : values(option).last();
    }
    /** All values in the order of the command line. */
    QStringList values(const char *option) const { return options.value(QLatin1String(option)); }
    /** The repository as an absolute path without superfluous parts. */
    QString repository() const;
    /** The operands after the repository. */
    QStringList others() const { return operands.mid(1); }
};
