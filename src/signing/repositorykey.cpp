// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/repositorykey.h"

#include "core/runinbackground.h"
#include "files/wholefile.h"
#include "signing/gpgrun.h"
#include "signing/keylisting.h"
#include "signing/signprocess.h"

#include <QFileInfo>

RepositoryKey RepositoryKey::read(const QString &repoPath, const QString &codename)
{
    RepositoryKey key;
    const QString file = QStringLiteral("%1/dists/%2/InRelease").arg(repoPath, codename);
    if (!QFileInfo(file).isFile())
        return key;
    // The user's gpg may be configured to download missing keys.
    const ProcessResult result = runGpg({QStringLiteral("--no-auto-key-retrieve"),
                                         QStringLiteral("--status-fd"),
                                         QStringLiteral("1"),
                                         QStringLiteral("--verify"),
                                         QStringLiteral("--"),
                                         file});
    key.id = signer(result.output);
    // gpg does not print GOODSIG for a key that has expired or is revoked.
    key.isGood = result.succeeded() && result.output.contains(QLatin1String("[GNUPG:] GOODSIG "));
    if (key.id.isEmpty())
        return key;
    key.text = SignProcess::keyText(SignProcess::keys(), key.id);
    if (key.text.isEmpty()) {
        key.remark = tr("not in the key ring");
        return key;
    }
    const auto known = readSecretKeys();
    if (!known)
        return key;
    const SigningKey secret = SigningKey::find(*known, key.id);
    key.remark = secret.obstacle();
    if (key.remark.isEmpty())
        key.remark = secret.warning(QDateTime::currentDateTime());
    return key;
}

void RepositoryKey::readInBackground(QObject *context,
                                     const QString &repoPath,
                                     const QString &codename,
                                     const Receiver &receiver)
{
    runInBackground(
        context, [repoPath, codename] { return read(repoPath, codename); }, receiver);
}

QString RepositoryKey::signer(const QString &status)
{
    // See gpg's doc/DETAILS. The last word of VALIDSIG is the fingerprint of the primary key, also if a subkey signed.
    QString unknown;
    const QStringList lines = status.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (words.value(0) != QLatin1String("[GNUPG:]"))
            continue;
        if (words.value(1) == QLatin1String("VALIDSIG"))
            return words.last();
        if (words.value(1) == QLatin1String("NO_PUBKEY"))
            unknown = words.value(2);
    }
    return unknown;
}

RepositoryKey::Export RepositoryKey::publicKey(const QString &id)
{
    const ProcessResult result = runGpg({QStringLiteral("--no-comments"),
                                         QStringLiteral("--no-emit-version"),
                                         QStringLiteral("--export-options"),
                                         QStringLiteral("export-minimal"),
                                         QStringLiteral("--armor"),
                                         QStringLiteral("--export"),
                                         QStringLiteral("--"),
                                         id});
    // For an unknown key gpg prints nothing and still succeeds.
    if (!result.succeeded() || result.output.isEmpty())
        return {{}, tr("gpg exported no key.") + QLatin1Char('\n') + result.errorOutput};
    return {result.output.toLatin1(), {}};
}

QString RepositoryKey::savePublicKey(const QString &id, const QString &path)
{
    const Export exported = publicKey(id);
    if (exported.key.isEmpty())
        return exported.errorText;
    return WholeFile::replace(path, exported.key);
}
