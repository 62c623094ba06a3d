// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/signatureeffect.h"

#include "signing/keylisting.h"
#include "signing/repositorykey.h"
#include "signing/signprocess.h"

#include <algorithm>

QString SignatureEffect::of(const QString &repository, const QString &codename, const QString &signWith)
{
    if (signWith.isEmpty())
        return tr("The repository is not signed.");
    const QStringList keys = SignProcess::keys();
    if (signWith != QLatin1String("yes") && signWith != QLatin1String("default")) {
        QStringList signers;
        for (const QString &id : signWith.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QString text = SignProcess::keyText(keys, id);
            signers << (text.isEmpty() ? id : text);
        }
        return tr("Signed with: %1").arg(signers.join(QLatin1String(", ")));
    }
    // gpg decides on its default key itself. What it has chosen last time is the best that is known of that.
    const RepositoryKey last
        = repository.isEmpty() ? RepositoryKey() : RepositoryKey::read(repository, codename);
    if (last.isGood && !last.text.isEmpty())
        return tr("Signed with the default key: %1").arg(last.text);
    const auto known = readSecretKeys();
    if (!known)
        return tr("Signed with the default key, which could not be found out.");
    const auto usable = std::find_if(known->cbegin(), known->cend(), [](const SigningKey &key) {
        return key.state == SigningKey::Usable;
    });
    if (usable == known->cend())
        return tr("The repository is to be signed, but there is no key that can sign.");
    const QString text = SignProcess::keyText(keys, usable->fingerprint);
    return tr("Signed with the default key: %1").arg(text.isEmpty() ? usable->fingerprint : text);
}
