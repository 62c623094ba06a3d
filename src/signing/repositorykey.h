// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <functional>

class QObject;

/** The key that signs the Release files of a repository, as the present signature names it. */
struct RepositoryKey
{
    Q_DECLARE_TR_FUNCTIONS(RepositoryKey)
public:
    using Receiver = std::function<void(const RepositoryKey &key)>;

    QString
        id; ///< fingerprint, or a part of it when the key is not in the key ring; empty: there is no signature
    bool isGood = false; ///< the signature is valid and the key can still sign, so apt accepts it
    QString text; ///< "user id [short id]"; empty when the key is not in the key ring
    QString remark; ///< why the key can no longer sign, or that it expires soon; else empty

    /** Reads the signature of the distribution `codename`. Runs gpg: not for the interface thread. */
    static RepositoryKey read(const QString &repoPath, const QString &codename);
    /**
     * Reads without waiting. `receiver` is called later on the thread of `context`, unless `context` is deleted first.
     */
    static void readInBackground(QObject *context,
                                 const QString &repoPath,
                                 const QString &codename,
                                 const Receiver &receiver);

    /**
     * The signer in the status lines of "gpg --verify". For a missing key it is an id, which is shorter than a
     * fingerprint.
     */
    static QString signer(const QString &status);

    /** The result of publicKey(). */
    struct Export
    {
        QByteArray key; ///< armored; empty on failure
        QString errorText;
    };
    /**
     * The public part of the key, with which others check its signatures. It contains no signatures of other people and
     * is in ASCII armor without headers. Runs gpg: not for the interface thread.
     */
    static Export publicKey(const QString &id);
    /** Writes the public part to a file. Returns the error text; empty on success. */
    static QString savePublicKey(const QString &id, const QString &path);
};
