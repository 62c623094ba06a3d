// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

class QObject;

/** Whether packages or repositories can be signed on this machine; asked before signing is switched on. */
struct SigningCheck
{
    Q_DECLARE_TR_FUNCTIONS(SigningCheck)
public:
    using Answer = std::function<void(const SigningCheck &check)>;

    bool canSign = false;
    QString missingPackage; ///< the package to be installed first; else empty
    QString errorText; ///< when gpg failed, what it said or how it ended; else empty

    /**
     * Looks for gpg and asks it for the keys, without waiting; `answer` is called later, on the thread of `context`
     * (which must be the calling one) and as long as that lives. Without a key that signs neither text is set.
     */
    static void verifySigningKeys(QObject *context, const Answer &answer);
    /** Whether the output of "gpg --list-keys" names a primary key that is meant for signing. */
    static bool listsSigningKey(const QString &listing);
};
