// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/invocation.h"
#include "cli/terminal/console.h"
#include "cli/usage.h"
#include "engine/storedresults.h"
#include "platform/desktopintegration.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <algorithm>

namespace
{
/** Whether errors are told as JSON. */
bool wantsJson(const Invocation &invocation, const QStringList &arguments)
{
    if (invocation.error.isEmpty())
        return invocation.has("json");
    // Words that could not be parsed; after these dashes there are no options.
    const QStringList words = arguments.mid(0, arguments.indexOf(QStringLiteral("--")));
    return words.contains(QLatin1String("--json"));
}
} // namespace

int main(int argc, char *argv[])
{
    // Programs read our error output; what Qt remarks on its surroundings does not belong there.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false\nqt.*.warning=false"));
    const QCoreApplication application(argc, argv);
    // The settings, the stored results and the translations are those of the window.
    veltInit(QStringLiteral(VELT_VERSION), QStringLiteral("Velt admin repo"));
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    // Installed with the program, and no command of the user.
    if (arguments.value(0) == QLatin1String("--print-completion")) {
        QTextStream(stdout) << Usage::completion(arguments.value(1));
        return 0;
    }
    const Invocation invocation = Invocation::parse(arguments);
    if (invocation.wantsVersion) {
        QTextStream(stdout) << QStringLiteral("velt-admin-repo-cli %1\n").arg(QLatin1String(VELT_VERSION));
        return 0;
    }
    if (invocation.wantsHelp) {
        QTextStream(stdout) << (invocation.command == nullptr ? Usage::ofProgram()
                                                              : Usage::ofCommand(*invocation.command));
        return 0;
    }
    Console console({wantsJson(invocation, arguments), invocation.has("quiet"), invocation.options.keys()});
    if (!invocation.error.isEmpty()) {
        console.error(QStringLiteral("usage"), invocation.error);
        console.remark(QCoreApplication::translate("cli", "velt-admin-repo-cli --help shows all commands."));
        return static_cast<int>(ExitCode::Usage);
    }
    const ExitCode code = invocation.command->run(invocation, console);
    StoredResults::waitForAll();
    return static_cast<int>(console.flush() ? code : std::max(code, ExitCode::Failed));
}
