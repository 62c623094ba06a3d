// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

/** What the user can do when gpg refuses to sign. */
struct SigningAdvice
{
    Q_DECLARE_TR_FUNCTIONS(SigningAdvice)
public:
    /** A sentence for the output of gpg, or of reprepro, which passes on the words of gpg's library; empty for most. */
    static QString of(const QString &output);
};
