// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <functional>

class QObject;

/** The key with which the Release files of a repository are signed, as their last signature tells it. */
struct RepositoryKey
{
    Q_DECLARE_TR_FUNCTIONS(RepositoryKey)
public:
    using Receiver = std::function<void(const RepositoryKey &key)>;

    QString
        id; ///< fingerprint, or a part of it when the key is not in the key ring; empty: there is no signature
    bool isGood = false; ///< the signature is, and the key may still make one: apt takes it
    QString text; ///< "user id [short id]"; empty when the key is not in the key ring
    QString remark; ///< why it cannot sign any more, or that it expires soon; else empty

    /** Reads the signature of the distribution `codename`. Runs gpg: not for the interface thread. */
    static RepositoryKey read(const QString &repoPath, const QString &codename);
    /** Reads without waiting; `receiver` is called later on the thread of `context`, as long as that lives. */
    static void
    readAside(QObject *context, const QString &repoPath, const QString &codename, const Receiver &receiver);

    /** The signer in the status lines of "gpg --verify"; an id is shorter than a fingerprint for a missing key. */
    static QString signer(const QString &status);

    struct Export
    {
        QByteArray key; ///< armored; empty on failure
        QString errorText;
    };
    /**
     * The public part of the key, for those who check its signatures: without what others say of it, in ASCII armor
     * without headers. Runs gpg: not for the interface thread.
     */
    static Export publicKey(const QString &id);
    /** Writes the public part to a file; returns what went wrong, empty when nothing did. */
    static QString savePublicKey(const QString &id, const QString &path);
};
