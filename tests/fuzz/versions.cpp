// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/versionorder.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QStringList>

namespace
{
int sign(int order)
{
    return order == 0 ? 0 : (order < 0 ? -1 : 1);
}
} // namespace

void FuzzTarget::versions(std::string_view input)
{
    // A sort must be able to rely on the order, also for invalid versions.
    const QStringList texts = Fuzzing::expandedText(input).split(QLatin1Char('\n')).mid(0, 3);
    for (const QString &a : texts) {
        FUZZ_RULE(VersionOrder::compare(a, a) == 0);
        for (const QString &b : texts) {
            const int order = sign(VersionOrder::compare(a, b));
            FUZZ_RULE(order == -sign(VersionOrder::compare(b, a)));
            for (const QString &c : texts) {
                if (order <= 0 && VersionOrder::compare(b, c) <= 0)
                    FUZZ_RULE(VersionOrder::compare(a, c) <= 0);
            }
            const auto holds
                = [&a, &b](const char *op) { return VersionOrder::holds(a, QString::fromLatin1(op), b); };
            const bool areVersions = holds("<=") || holds(">=");
            FUZZ_RULE(holds("<<") == (areVersions && order < 0));
            FUZZ_RULE(holds("=") == (areVersions && order == 0));
            FUZZ_RULE(holds(">>") == (areVersions && order > 0));
            FUZZ_RULE(holds("<") == holds("<=") && holds(">") == holds(">=") && !holds("!"));
        }
    }
}
