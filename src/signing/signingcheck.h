// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

class QObject;

/** Whether packages or repositories can be signed on this machine. Checked before the user turns signing on. */
struct SigningCheck
{
    Q_DECLARE_TR_FUNCTIONS(SigningCheck)
public:
    using Answer = std::function<void(const SigningCheck &check)>;

    bool canSign = false;
    QString missingPackage; ///< the package that must be installed first; else empty
    QString errorText; ///< when gpg failed, its message or its exit status; else empty

    /**
     * Looks for gpg and lists its keys without waiting. `answer` is called later, on the thread of `context`, which
     * must be the calling thread, unless `context` is deleted first. When there is no key for signing, both texts are
     * empty.
     */
    static void verifySigningKeys(QObject *context, const Answer &answer);
    /** Whether the output of "gpg --list-keys" contains a primary key for signing. */
    static bool listsSigningKey(const QString &listing);
};
