// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packagesigner.h"

#include "engine/changes/addrun.h"
#include "engine/changes/jobcontext.h"
#include "signing/signprocess.h"

#include <QFileInfo>

bool PackageSigner::sign(AddedFile *file, const QString &packageName)
{
    if (!file->source.isEmpty())
        return true;
    if (!file->run.options.sign) {
        file->source = file->path;
        return true;
    }
    const auto fail = [&](const QString &details) {
        m_context.critical(tr("Failed to sign package %1!").arg(packageName), file->shownText(details));
        return false;
    };
    // A passphrase that the user did not give is not asked for again with every further file.
    if (!file->run.keyTrouble.isEmpty())
        return fail(file->run.keyTrouble);
    file->signedFolder = std::make_unique<ScratchFolder>();
    if (!file->signedFolder->isValid())
        return fail(tr("No temporary folder could be made to sign it in."));
    const QString copy = file->signedFolder->filePath(QFileInfo(file->path).fileName());
    if (m_context.signProcess().sign(file->path, copy, file->run.options.signKeyId)) {
        file->source = copy;
        return true;
    }
    constexpr int KeyUnusable = 2;
    if (m_context.signProcess().exitCode() == KeyUnusable)
        file->run.keyTrouble = m_context.signProcess().log();
    return fail(m_context.signProcess().log());
}

QString PackageSigner::keyOf(AddRun *run)
{
    if (!run->options.sign)
        return {};
    if (!run->signingKey)
        run->signingKey = SignProcess::keyText(SignProcess::keys(), run->options.signKeyId);
    return *run->signingKey;
}
