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
    /** Enters the package when it is signed, and takes out what is said of it when not. */
    static void remember(JobContext *context, const PackageInfo &package);
    /** Takes the package out when it was signed. */
    static void forget(JobContext *context, const PackageInfo &package);
    /** Takes out whatever is not among all packages that the repository has. */
    static void forgetOthers(JobContext *context, const QList<PackageInfoPtr> &packages);
};
