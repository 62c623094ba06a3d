// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** What signing one package file came to. */
struct SignOutcome
{
    QString signedFile; ///< the signed copy; empty when signing failed
    QString text; ///< on failure, what went wrong, for the user
    QString details; ///< on failure, what the tool said
};

/** Makes signed copies of package files. Called on a job's thread; blocks until the copy is there. */
class PackageSigner
{
public:
    PackageSigner() = default;
    virtual ~PackageSigner();
    PackageSigner(const PackageSigner &) = delete;
    PackageSigner &operator=(const PackageSigner &) = delete;

    /** Writes a signed copy of `file` into the folder `target`, under the same file name; `file` stays as it is. */
    virtual SignOutcome sign(const QString &file, const QString &target, const QString &keyId) = 0;
};
