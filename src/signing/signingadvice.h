// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

/** Advice for the user when gpg refuses to sign. */
struct SigningAdvice
{
    Q_DECLARE_TR_FUNCTIONS(SigningAdvice)
public:
    /**
     * Advice for the output of gpg or of reprepro, which prints the messages of gpg's library. Empty for most outputs.
     */
    static QString of(const QString &output);
};
