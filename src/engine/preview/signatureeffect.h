// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

/** Who signs the indices that a job writes. */
class SignatureEffect
{
    Q_DECLARE_TR_FUNCTIONS(SignatureEffect)
public:
    /**
     * In words of a user. `signWith` is the value of that field of the description; empty: nobody signs. `repository`
     * is empty when its present signature is not of that value. Runs gpg: not for the interface thread.
     */
    static QString of(const QString &repository, const QString &codename, const QString &signWith);
};
