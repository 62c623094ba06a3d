// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signing/signingkeys.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

class QObject;

/** The keys that the user can choose from for signing, and what is to be said of them. */
struct KeyListing
{
    using Receiver = std::function<void(const KeyListing &listing)>;

    QStringList keys; ///< "user id [short id]", in the key store's order
    QHash<QString, QString> unusable; ///< of the keys that cannot sign, why
    QHash<QString, QString> warnings; ///< of usable keys, what the user should know: that they expire soon

    /** Asks the key store and gpg: not for the interface thread. */
    static KeyListing read();
    /** Reads without waiting; `receiver` is called later on the thread of `context`, as long as that lives. */
    static void readAside(QObject *context, const Receiver &receiver);
    /** Sorts the texts of keys by what the key ring says of them. */
    static KeyListing judge(const QStringList &keys, const QVector<SigningKey> &known, const QDateTime &now);
};

/**
 * The keys whose secret part is in the user's key ring. Nothing when gpg is missing, fails or does not answer within
 * half a minute. Runs gpg: not for the interface thread.
 */
std::optional<QVector<SigningKey>> readSecretKeys();
