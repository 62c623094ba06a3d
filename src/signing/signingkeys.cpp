// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/signingkeys.h"

#include <QLocale>
#include <QStringList>

namespace
{
// Indices of the fields in the listing; gpg's doc/DETAILS counts them from 1.
constexpr int Validity = 1;
constexpr int Expiry = 6;
constexpr int UserId = 9; // in "fpr" lines the fingerprint
constexpr int Capabilities = 11;
constexpr int Token = 14; // "#" when the secret part is missing
constexpr int WarningDays = 30;

QDateTime expiry(const QStringList &fields)
{
    const qint64 seconds = fields.value(Expiry).toLongLong();
    return seconds > 0 ? QDateTime::fromSecsSinceEpoch(seconds) : QDateTime();
}

/** The state of one key or subkey, regardless of its subkeys. Lower-case letters are its own capabilities. */
SigningKey::State ownState(const QStringList &fields)
{
    const QString validity = fields.value(Validity);
    if (validity == QLatin1String("r"))
        return SigningKey::Revoked;
    if (validity == QLatin1String("e"))
        return SigningKey::Expired;
    const QString capabilities = fields.value(Capabilities);
    if (capabilities.contains(QLatin1Char('D')))
        return SigningKey::Disabled;
    if (validity == QLatin1String("i") || !capabilities.contains(QLatin1Char('s')))
        return SigningKey::CannotSign;
    return fields.value(Token) == QLatin1String("#") ? SigningKey::NoSecretKey : SigningKey::Usable;
}

/** Marks a key as usable when its primary key cannot sign but this subkey can. */
void considerSubkey(const QStringList &fields, SigningKey *key)
{
    if ((key->state != SigningKey::CannotSign && key->state != SigningKey::NoSecretKey)
        || ownState(fields) != SigningKey::Usable)
        return;
    key->state = SigningKey::Usable;
    const QDateTime expires = expiry(fields);
    if (expires.isValid() && (!key->expires.isValid() || expires < key->expires))
        key->expires = expires;
}
} // namespace

QVector<SigningKey> SigningKey::parse(const QString &listing)
{
    QVector<SigningKey> keys;
    const QStringList lines = listing.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char(':'));
        const QString &kind = fields.first();
        if (kind == QLatin1String("sec"))
            keys.append({QString(), ownState(fields), expiry(fields)});
        else if (kind == QLatin1String("fpr") && !keys.isEmpty() && keys.last().fingerprint.isEmpty())
            keys.last().fingerprint = fields.value(UserId);
        else if (kind == QLatin1String("ssb") && !keys.isEmpty())
            considerSubkey(fields, &keys.last());
    }
    return keys;
}

SigningKey SigningKey::find(const QVector<SigningKey> &keys, const QString &shortId)
{
    SigningKey found;
    for (const SigningKey &key : keys) {
        if (shortId.isEmpty() || !key.fingerprint.endsWith(shortId, Qt::CaseInsensitive))
            continue;
        if (!found.fingerprint.isEmpty()) {
            found.state = Ambiguous;
            break;
        }
        found = key;
    }
    return found;
}

QString SigningKey::obstacle() const
{
    switch (state) {
    case Usable:
        break;
    case NoSecretKey:
        return tr("no secret key");
    case Expired:
        return expires.isValid()
                   ? tr("expired on %1").arg(QLocale().toString(expires.date(), QLocale::ShortFormat))
                   : tr("expired");
    case Revoked:
        return tr("revoked");
    case Disabled:
        return tr("disabled");
    case CannotSign:
        return tr("not meant for signing");
    case Ambiguous:
        return tr("another key has the same id");
    }
    return {};
}

QString SigningKey::warning(const QDateTime &now) const
{
    if (state != Usable || !expires.isValid() || now.addDays(WarningDays) < expires)
        return {};
    return tr("The key expires on %1.").arg(QLocale().toString(expires.date(), QLocale::ShortFormat));
}
