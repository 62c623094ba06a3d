// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packagesigner.h"

#include "engine/changes/addedfile.h"
#include "engine/changes/jobcontext.h"
#include "signing/signprocess.h"

#include <QFileInfo>

bool PackageSigner::sign(AddedFile *file, const QString &packageName)
{
    if (!file->source.isEmpty())
        return true;
    if (!m_options.sign) {
        file->source = file->path;
        return true;
    }
    const auto fail = [&](const QString &details) {
        m_context.errors.critical(tr("Failed to sign package %1!").arg(packageName),
                                  file->shownText(details));
        return false;
    };
    // When the user gave no passphrase, gpg must not ask for it again with every further file.
    if (!m_keyTrouble.isEmpty())
        return fail(m_keyTrouble);
    file->signedFolder = std::make_unique<ScratchFolder>();
    if (!file->signedFolder->isValid())
        return fail(tr("No temporary folder could be made to sign it in."));
    const QString copy = file->signedFolder->filePath(QFileInfo(file->path).fileName());
    SignProcess process;
    if (process.sign(file->path, copy, m_options.signKeyId)) {
        file->source = copy;
        return true;
    }
    constexpr int KeyUnusable = 2; // exit code of the script
    if (process.exitCode() == KeyUnusable)
        m_keyTrouble = process.log();
    return fail(process.log());
}

QString PackageSigner::key()
{
    if (!m_options.sign)
        return {};
    if (!m_key)
        m_key = SignProcess::keyText(SignProcess::keys(), m_options.signKeyId);
    return *m_key;
}
