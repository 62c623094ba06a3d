// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "signing/keylisting.h"
#include "signing/repositorykey.h"
#include "signing/signingcheck.h"
#include "signing/signprocess.h"

void FuzzTarget::signing(std::string_view input)
{
    const QString text = Fuzzing::expandedText(input);
    const QVector<SigningKey> keys = SigningKey::parse(text);
    FUZZ_RULE(keys.size() <= text.count(QLatin1String("sec")));
    QStringList shown;
    for (const SigningKey &key : keys) {
        FUZZ_RULE(!Fuzzing::breaksLine(key.fingerprint) && !key.fingerprint.contains(QLatin1Char(':')));
        // Limited, because only tests look up so many keys.
        constexpr int Most = 100;
        if (key.fingerprint.isEmpty() || shown.size() >= Most)
            continue;
        const SigningKey found = SigningKey::find(keys, key.fingerprint);
        FUZZ_RULE(found.state == SigningKey::Ambiguous || found.fingerprint == key.fingerprint);
        shown.append(QStringLiteral("A [B] <c> [%1]").arg(key.fingerprint.right(8)));
    }
    // The texts of the key store contain names of other people.
    const QStringList lines = text.split(QLatin1Char('\n'));
    shown += lines.mid(0, 20);
    const QDateTime now = QDateTime::fromSecsSinceEpoch(1700000000);
    const KeyListing listing = KeyListing::judge(shown, keys, now);
    FUZZ_RULE(listing.keys == shown);
    for (auto warning = listing.warnings.cbegin(); warning != listing.warnings.cend(); ++warning)
        FUZZ_RULE(!listing.unusable.contains(warning.key()) && !warning->isEmpty());

    const QString signer = RepositoryKey::signer(text);
    FUZZ_RULE(!Fuzzing::breaksLine(signer) && !signer.contains(QLatin1Char(' ')));
    FUZZ_RULE(signer.isEmpty() || text.contains(QLatin1String("[GNUPG:]")));
    FUZZ_RULE(!SigningCheck::listsSigningKey(text) || text.contains(QLatin1String("pub")));
    const QString keyText = SignProcess::keyText(lines, lines.first().right(16));
    FUZZ_RULE(keyText.isEmpty() || lines.contains(keyText));
}
