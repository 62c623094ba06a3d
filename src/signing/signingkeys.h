// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QVector>

/** The state of one key in the user's key ring, as far as it matters for signing packages. */
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
        CannotSign, ///< neither the key nor a subkey is made for signatures
        Ambiguous ///< another key has the same short id, so the id identifies no key
    };

    QString fingerprint; ///< of the primary key
    State state = NoSecretKey;
    QDateTime expires; ///< when the key stops signing, also in the past; invalid: never

    /** Text for the user: why the key cannot sign; empty when it can. */
    QString obstacle() const;
    /** A warning for the user when a usable key expires within 30 days; else empty. */
    QString warning(const QDateTime &now) const;

    /** All keys in the output of "gpg --with-colons --list-secret-keys". */
    static QVector<SigningKey> parse(const QString &listing);
    /** The key in `keys` with this short id (the last digits of its fingerprint). */
    static SigningKey find(const QVector<SigningKey> &keys, const QString &shortId);
};
