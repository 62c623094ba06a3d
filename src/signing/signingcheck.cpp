// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/signingcheck.h"

#include "core/processutils.h"
#include "platform/packagemanager.h"

#include <QStringList>

#include <algorithm>

namespace
{
const QLatin1String gpg("gpg");

SigningCheck judged(const ProcessResult &result)
{
    SigningCheck check;
    if (result.succeeded())
        check.canSign = SigningCheck::listsSigningKey(result.output);
    else if (!result.errorOutput.trimmed().isEmpty())
        check.errorText = result.errorOutput;
    else if (result.crashed())
        check.errorText = SigningCheck::tr("gpg crashed.");
    else
        check.errorText
            = SigningCheck::tr("gpg ended with the code %1 and did not say why.").arg(result.exitCode);
    return check;
}

void listKeys(QObject *context, const SigningCheck::Answer &answer)
{
    constexpr int TimeLimit = 30000; // milliseconds
    followProcess({gpg, {QStringLiteral("--list-keys")}, {}, {}, -1},
                  TimeLimit,
                  context,
                  [answer](const ProcessResult &result) { answer(judged(result)); });
}
} // namespace

void SigningCheck::verifySigningKeys(QObject *context, const Answer &answer)
{
    VeltAdmin::PackageManager::isPackageInstalled(gpg, context, [context, answer](bool isInstalled) {
        if (isInstalled) {
            listKeys(context, answer);
            return;
        }
        SigningCheck check;
        check.missingPackage = gpg;
        answer(check);
    });
}

bool SigningCheck::listsSigningKey(const QString &listing)
{
    const QStringList lines = listing.split(QLatin1Char('\n'));
    return std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
        return line.startsWith(QLatin1String("pub")) && line.contains(QLatin1String("SC"));
    });
}
