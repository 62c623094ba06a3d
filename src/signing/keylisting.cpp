// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/keylisting.h"

#include "core/runinbackground.h"
#include "signing/gpgrun.h"
#include "signing/signprocess.h"

KeyListing KeyListing::read()
{
    const auto known = readSecretKeys();
    if (!known)
        return {};
    return judge(SignProcess::keys(), *known, QDateTime::currentDateTime());
}

void KeyListing::readInBackground(QObject *context, const Receiver &receiver)
{
    runInBackground(context, &KeyListing::read, receiver);
}

KeyListing KeyListing::judge(const QStringList &keys, const QVector<SigningKey> &known, const QDateTime &now)
{
    KeyListing listing;
    listing.keys = keys;
    for (const QString &text : keys) {
        const auto bracket = text.lastIndexOf(QLatin1Char('['));
        const SigningKey key = SigningKey::find(known, text.mid(bracket + 1, text.size() - bracket - 2));
        const QString obstacle = key.obstacle();
        const QString warning = key.warning(now);
        if (!key.fingerprint.isEmpty())
            listing.fingerprints.insert(text, key.fingerprint);
        if (!obstacle.isEmpty())
            listing.unusable.insert(text, obstacle);
        if (!warning.isEmpty())
            listing.warnings.insert(text, warning);
    }
    return listing;
}

std::optional<QVector<SigningKey>> readSecretKeys()
{
    const ProcessResult result
        = runGpg({QStringLiteral("--with-colons"), QStringLiteral("--list-secret-keys")});
    if (!result.succeeded())
        return std::nullopt;
    return SigningKey::parse(result.output);
}
