// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/signingadvice.h"

#include <QLatin1String>

QString SigningAdvice::of(const QString &output)
{
    const auto says
        = [&output](const char *words) { return output.contains(QLatin1String(words), Qt::CaseInsensitive); };
    // Messages of libgpg-error, which gpg and reprepro print.
    if (says("Operation cancelled") || says("Canceled"))
        return tr("The passphrase of the key was not given.");
    if (says("Bad passphrase"))
        return tr("The passphrase of the key was wrong.");
    if (says("Inappropriate ioctl for device") || says("No pinentry"))
        return tr(
            "The key has a passphrase, and gpg could not ask for it. Install a pinentry program that opens a "
            "window, such as pinentry-qt, and try again.");
    if (says("gpgme gave error") && says("No secret key"))
        return tr("The key ring has no key of yours that can sign. Make one with KGpg first.");
    return {};
}
