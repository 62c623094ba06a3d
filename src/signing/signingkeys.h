// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QVector>

/** What the user's key ring says of one key, as far as it matters for signing packages. */
struct SigningKey
{
    Q_DECLARE_TR_FUNCTIONS(SigningKey)
public:
    enum State : quint8 {
        Usable,
        NoSecretKey, ///< somebody else's key, or the secret part is not on this machine
        Expired,
        Revoked,
        Disabled,
        CannotSign, ///< neither the key nor a subkey is meant for signatures
        Ambiguous ///< another key has the same short id, so that the id names none
    };

    QString fingerprint; ///< of the primary key
    State state = NoSecretKey;
    QDateTime expires; ///< when it stops or stopped signing; invalid: never

    /** Why the key cannot sign, for the user; empty when it can. */
    QString obstacle() const;
    /** A word of warning when a usable key expires within 30 days; else empty. */
    QString warning(const QDateTime &now) const;

    /** All keys in what "gpg --with-colons --list-secret-keys" printed. */
    static QVector<SigningKey> parse(const QString &listing);
    /** The one of `keys` that the short id (the last digits of a fingerprint) names. */
    static SigningKey find(const QVector<SigningKey> &keys, const QString &shortId);
};
