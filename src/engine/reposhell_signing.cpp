// SPDX-License-Identifier: GPL-3.0-or-later
// Signing packages, and the record of which key signed which.
#include "engine/addrun.h"
#include "engine/jobframe.h"
#include "engine/reposhell.h"
#include "signing/signprocess.h"

#include <QFileInfo>
#include <QHash>

void RepoShell::signPackages(const QList<PackageInfoPtr> &packages, const QString &keyId)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, keyId] { return signBody(packages, keyId); });
}

int RepoShell::signBody(const QList<PackageInfoPtr> &packages, const QString &keyId)
{
    JobFrame frame(*m_context, packages.size() == 1 ? tr("Package signing") : tr("Packages signing"));
    if (!m_context->isDatabaseThere())
        return frame.finish(ERROR, tr("%n package(s) is signed: %1", nullptr, 0).arg(QString()));
    const AddOptions options{QString(), true, keyId};
    AddRun run{options, packages.size() == 1, m_context->makeSession(), false};
    QStringList names;
    QHash<QString, bool> files; // the files that have been dealt with, and whether they are signed
    bool stopped = false;
    for (const PackageInfoPtr &package : packages) {
        stopped = m_context->isCanceled();
        if (stopped)
            break;
        const QString file = package->filePath();
        if (!files.contains(file))
            files.insert(file, signPackage(package, &run));
        if (files.value(file))
            names.append(displayFileName(*package));
        frame.itemDone(packages.size());
    }
    finishAdding(&run, stopped);
    const QString joined = names.join(QLatin1String(", "));
    if (stopped)
        return frame.finish(
            CANCEL,
            tr("Operation stopped. %1 of %n package(s) is signed: %2", nullptr, packages.size())
                .arg(QString::number(names.size()), joined));
    return frame.finish(names.size() == packages.size() ? SUCCESS : PACKAGE_UNSIGNED,
                        tr("%n package(s) is signed: %1", nullptr, names.size()).arg(joined));
}

bool RepoShell::signPackage(const PackageInfoPtr &package, AddRun *run)
{
    const PackageInfoPtr present = m_context->packages().find(PackageKey::of(*package));
    if (!present)
        return false;
    AddedFile file{*run, present->filePath()};
    const ErrorCode result = includePackage(&file, *present, true);
    return result == SUCCESS || result == PACKAGE_GPGERROR;
}

bool RepoShell::signFile(AddedFile *file, const QString &packageName)
{
    if (!file->source.isEmpty())
        return true;
    if (!file->run.options.sign) {
        file->source = file->path;
        return true;
    }
    const auto fail = [&](const QString &details) {
        Q_EMIT critical(tr("Failed to sign package %1!").arg(packageName), details);
        return false;
    };
    // A passphrase that the user did not give is not asked for again with every further file.
    if (!file->run.keyTrouble.isEmpty())
        return fail(file->run.keyTrouble);
    file->signedFolder = std::make_unique<ScratchFolder>();
    if (!file->signedFolder->isValid())
        return fail(tr("No temporary folder could be made to sign it in."));
    const QString copy = file->signedFolder->filePath(QFileInfo(file->path).fileName());
    if (m_context->signProcess().sign(file->path, copy, file->run.options.signKeyId)) {
        file->source = copy;
        return true;
    }
    constexpr int KeyUnusable = 2;
    if (m_context->signProcess().exitCode() == KeyUnusable)
        file->run.keyTrouble = m_context->signProcess().log();
    return fail(m_context->signProcess().log());
}

QString RepoShell::signingKeyOf(AddRun *run) const
{
    if (!run->options.sign)
        return {};
    if (!run->signingKey)
        run->signingKey = SignProcess::keyText(SignProcess::keys(), run->options.signKeyId);
    return *run->signingKey;
}

void RepoShell::markSigned(QList<PackageInfoPtr> *packages, const QString &repoPath) const
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

void RepoShell::rememberSignature(const PackageInfo &package)
{
    const QString file = SignProcess::packagesConfPath(path());
    if (package.isSigned() && !SignProcess::saveKeyInfo(file, package))
        Q_EMIT critical(tr("The record of the signed packages could not be written."), file, WARNING);
}

void RepoShell::forgetSignature(const PackageInfo &package)
{
    const QString file = SignProcess::packagesConfPath(path());
    if (package.isSigned() && !SignProcess::removeKeyInfo(file, package))
        Q_EMIT critical(tr("The record of the signed packages could not be written."), file, WARNING);
}
