// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/signaturerecord.h"

#include "engine/jobcontext.h"
#include "signing/signprocess.h"

#include <QHash>
#include <QSet>

namespace
{
void warn(JobContext *context, const QString &file)
{
    context->critical(SignatureRecord::tr("The record of the signed packages could not be written."),
                      file,
                      RepoEnums::WARNING);
}
} // namespace

void SignatureRecord::mark(QList<PackageInfoPtr> *packages, const QString &repoPath)
{
    const QHash<QString, QString> keys = SignProcess::allKeyInfo(SignProcess::packagesConfPath(repoPath));
    if (keys.isEmpty())
        return;
    for (PackageInfoPtr &package : *packages) {
        const QString key = keys.value(SignProcess::keyInfoName(*package));
        if (key.isEmpty())
            continue;
        const auto record = QSharedPointer<PackageInfo>::create(*package);
        record->signingKey = key;
        package = record;
    }
}

void SignatureRecord::remember(JobContext *context, const PackageInfo &package)
{
    const QString file = SignProcess::packagesConfPath(context->path());
    // The entry of a package that was removed without this program's help is not that of the next one.
    const bool isStale = !package.isSigned() && !SignProcess::keyInfo(file, package).isEmpty();
    if ((package.isSigned() && !SignProcess::saveKeyInfo(file, package))
        || (isStale && !SignProcess::removeKeyInfo(file, package)))
        warn(context, file);
}

void SignatureRecord::forget(JobContext *context, const PackageInfo &package)
{
    const QString file = SignProcess::packagesConfPath(context->path());
    if (package.isSigned() && !SignProcess::removeKeyInfo(file, package))
        warn(context, file);
}

void SignatureRecord::forgetOthers(JobContext *context, const QList<PackageInfoPtr> &packages)
{
    const QString file = SignProcess::packagesConfPath(context->path());
    QSet<QString> names;
    for (const PackageInfoPtr &package : packages)
        names.insert(SignProcess::keyInfoName(*package));
    if (!SignProcess::keepKeyInfo(file, names))
        warn(context, file);
}
