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

/** The keys that the user can choose for signing, with remarks about them. */
struct KeyListing
{
    using Receiver = std::function<void(const KeyListing &listing)>;

    QStringList keys; ///< "user id [short id]", in the order of the key store
    QHash<QString, QString> fingerprints; ///< of the keys that are in the key ring with their secret part
    QHash<QString, QString> unusable; ///< for each key that cannot sign, the reason
    QHash<QString, QString> warnings; ///< for usable keys that expire soon, a warning

    /** Asks the key store and gpg: not for the interface thread. */
    static KeyListing read();
    /**
     * Reads without waiting. `receiver` is called later on the thread of `context`, unless `context` is deleted first.
     */
    static void readInBackground(QObject *context, const Receiver &receiver);
    /** Makes a listing of the texts in `keys` from the records of the key ring. */
    static KeyListing judge(const QStringList &keys, const QVector<SigningKey> &known, const QDateTime &now);
};

/**
 * The keys whose secret part is in the user's key ring. Nothing when gpg is missing, fails or does not answer within
 * half a minute. Runs gpg: not for the interface thread.
 */
std::optional<QVector<SigningKey>> readSecretKeys();
