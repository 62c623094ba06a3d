// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/signaturerecord.h"

#include "engine/changes/jobcontext.h"
#include "signing/signedpackages.h"

#include <QSet>

namespace
{
QString file(const JobContext &context)
{
    return SignedPackages::packagesConfPath(context.path());
}

void warn(JobContext *context)
{
    context->errors.critical(SignatureRecord::tr("The record of the signed packages could not be written."),
                             file(*context),
                             RepoEnums::WARNING);
}
} // namespace

void SignatureRecord::remember(JobContext *context, const PackageInfo &package)
{
    const SignedPackages record(file(*context));
    // Another program may have removed a signed package of this name. Its entry must not count for the new package.
    const bool isStale = !package.isSigned() && !record.keyInfo(package).isEmpty();
    if ((package.isSigned() && !record.saveKeyInfo(package)) || (isStale && !record.removeKeyInfo(package)))
        warn(context);
}

void SignatureRecord::forget(JobContext *context, const PackageInfo &package)
{
    if (package.isSigned() && !SignedPackages(file(*context)).removeKeyInfo(package))
        warn(context);
}

void SignatureRecord::forgetOthers(JobContext *context, const QList<PackageInfoPtr> &packages)
{
    QSet<QString> names;
    for (const PackageInfoPtr &package : packages)
        names.insert(SignedPackages::keyInfoName(*package));
    if (!SignedPackages(file(*context)).keepKeyInfo(names))
        warn(context);
}
