// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"

#include "platform/desktopintegration.h"

#include <QCoreApplication>
#include <QDir>

CommandLine::CommandLine()
{
    m_parser.setApplicationDescription(veltAppDescription());
    m_parser.addHelpOption();
    m_parser.addVersionOption();
    m_parser.addOption({{QStringLiteral("p"), QStringLiteral("packages")},
                        QCoreApplication::translate("main", "List of packages to add to the repository")});
    m_parser.addPositionalArgument(QStringLiteral("files"),
                                   QCoreApplication::translate("main", "Package files (.deb, .udeb)"),
                                   QStringLiteral("[files...]"));
}

void CommandLine::process(const QCoreApplication &application)
{
    m_parser.process(application);
}

QStringList CommandLine::packageFiles() const
{
    QStringList files;
    const QStringList arguments = m_parser.positionalArguments();
    for (const QString &argument : arguments) {
        if (!argument.isEmpty())
            files.append(QDir::cleanPath(QDir::current().absoluteFilePath(argument)));
    }
    return files;
}

bool CommandLine::asksForTextOnly(const QStringList &arguments)
{
    static const QStringList textOptions{QStringLiteral("-h"),
                                         QStringLiteral("--help"),
                                         QStringLiteral("--help-all"),
                                         QStringLiteral("-v"),
                                         QStringLiteral("--version")};
    for (const QString &argument : arguments) {
        if (argument == QLatin1String("--"))
            return false;
        if (textOptions.contains(argument))
            return true;
    }
    return false;
}
