// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCommandLineParser>
#include <QStringList>

class QCoreApplication;

/** What the program may be started with, and what this start asks for. */
class CommandLine
{
public:
    /** Needs the application object, for the translations of the texts. */
    CommandLine();

    /** Reads the arguments of `application`. Ends the program after the help, the version or a wrong option. */
    void process(const QCoreApplication &application);

    /**
     * The package files of `arguments` as absolute paths, since the instance that will read them may work in another
     * folder. Empty arguments are dropped.
     */
    QStringList packageFiles() const;

    /**
     * True when `arguments` (without the program's name) only ask for a text on the terminal, which needs no display.
     */
    static bool asksForTextOnly(const QStringList &arguments);

private:
    QCommandLineParser m_parser;
};
