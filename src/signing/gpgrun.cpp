// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/gpgrun.h"

#include <QElapsedTimer>

ProcessResult runGpg(const QStringList &arguments)
{
    constexpr int TimeLimit = 30000; // milliseconds
    QElapsedTimer clock;
    clock.start();
    ProcessCall call{QStringLiteral("gpg"),
                     QStringList{QStringLiteral("--batch"), QStringLiteral("--no-tty")} + arguments,
                     {},
                     {}};
    call.stopped = [&clock] { return clock.hasExpired(TimeLimit); };
    return runProcess(call);
}
