// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCommandLineParser>
#include <QStringList>

class QCoreApplication;

/** The command line options, and the arguments of this start. */
class CommandLine
{
public:
    /** Needs the application object for the translations of its texts. */
    CommandLine();

    /** Parses the arguments of `application`. Ends the program after the help, the version or a wrong option. */
    void process(const QCoreApplication &application);

    /**
     * The package files of the arguments as absolute paths, because the instance that reads them may have another
     * working directory. Empty arguments are dropped.
     */
    QStringList packageFiles() const;

    /** True when `arguments` (without the program name) only ask for text on the terminal, which needs no display. */
    static bool asksForTextOnly(const QStringList &arguments);

private:
    QCommandLineParser m_parser;
};
