// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/signjob.h"

#include "core/countof.h"
#include "engine/changes/addedfile.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/jobs/packageadding.h"

#include <QHash>

int SignJob::run(const QList<PackageInfoPtr> &packages, const QString &keyId)
{
    JobFrame frame(m_context, packages.size() == 1 ? tr("Package signing") : tr("Packages signing"));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, tr("%n package(s) is signed: %1", nullptr, 0).arg(QString()));
    const AddOptions options{QString(), true, keyId};
    PackageAdding adding(m_context, options, packages.size() == 1, false);
    QStringList names;
    QHash<QString, bool> files; // the files that have been dealt with, and whether they are signed
    bool stopped = false;
    for (const PackageInfoPtr &package : packages) {
        stopped = adding.mustEnd();
        if (stopped || adding.isDamaged())
            break;
        const QString file = package->filePath();
        if (!files.contains(file))
            files.insert(file, signPackage(package, &adding));
        if (files.value(file))
            names.append(displayFileName(*package));
        frame.itemDone(countOf(packages));
    }
    if (!adding.finish())
        names.clear();
    const QString joined = names.join(QLatin1String(", "));
    if (stopped)
        return frame.finish(
            CANCEL,
            tr("Operation stopped. %1 of %n package(s) is signed: %2", nullptr, countOf(packages))
                .arg(QString::number(names.size()), joined));
    return frame.finish(names.size() == packages.size() ? SUCCESS : PACKAGE_UNSIGNED,
                        tr("%n package(s) is signed: %1", nullptr, countOf(names)).arg(joined));
}

bool SignJob::signPackage(const PackageInfoPtr &package, PackageAdding *adding) const
{
    const PackageInfoPtr present = m_context.packages.find(PackageKey::of(*package));
    if (!present)
        return false;
    AddedFile file = adding->fileAt(present->filePath());
    file.origin.clear();
    // The index describes the unsigned file. A record with that would look like the change of another program.
    PackageInfo record = *present;
    record.poolFile = present->filePath().mid(present->root.size() + 1);
    record.control = present->control.withoutFileFields();
    const ErrorCode result = adding->replace(&file, record);
    return result == SUCCESS || result == PACKAGE_GPGERROR;
}
