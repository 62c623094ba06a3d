// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"

#include "cli/invocation.h"

#include <QHash>

ExitCode Commands::run(const Invocation &invocation, Console &console)
{
    using Command = ExitCode (*)(const Invocation &, Console &);
    static const QHash<QString, Command> commands{
        {QStringLiteral("create"), create},
        {QStringLiteral("show"), show},
        {QStringLiteral("list"), list},
        {QStringLiteral("add"), add},
        {QStringLiteral("remove"), remove},
        {QStringLiteral("fetch"), fetch},
        {QStringLiteral("check"), check},
        {QStringLiteral("upgrade"), upgrade},
        {QStringLiteral("export"), exportPackages},
        {QStringLiteral("import"), import},
        {QStringLiteral("sign"), sign},
        {QStringLiteral("keys"), keys},
        {QStringLiteral("change"), change},
        {QStringLiteral("publish"), publish},
        {QStringLiteral("unpublish"), unpublish},
        {QStringLiteral("published"), published},
        {QStringLiteral("source-line"), sourceLine},
    };
    return commands.value(QLatin1String(invocation.command->name))(invocation, console);
}
