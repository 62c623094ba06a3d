// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

struct JobContext;

/** What a job enters into the record of the signed packages. A record that cannot be written costs a warning. */
class SignatureRecord
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Enters the package when it is signed, and deletes its entry when it is not. */
    static void remember(JobContext *context, const PackageInfo &package);
    /** Deletes the entry of a signed package. */
    static void forget(JobContext *context, const PackageInfo &package);
    /** Deletes all entries but those of `packages`, which are all packages of the repository. */
    static void forgetOthers(JobContext *context, const QList<PackageInfoPtr> &packages);
};
