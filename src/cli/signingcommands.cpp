// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/packagejson.h"
#include "core/settingskeys.h"
#include "signing/keylisting.h"
#include "signing/signprocess.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QSettings>

namespace
{
constexpr int ShortId = 8; ///< digits

/** A word for programs that never changes. */
const char *wordOf(SigningKey::State state)
{
    switch (state) {
    case SigningKey::Usable:
        return "usable";
    case SigningKey::NoSecretKey:
        return "no-secret-key";
    case SigningKey::Expired:
        return "expired";
    case SigningKey::Revoked:
        return "revoked";
    case SigningKey::Disabled:
        return "disabled";
    case SigningKey::CannotSign:
        return "cannot-sign";
    case SigningKey::Ambiguous:
        return "ambiguous";
    }
    return "";
}

/** The key of the command line or else that of the window's settings. */
QString keyToUse(const Invocation &invocation)
{
    return invocation.has("key") ? invocation.value("key")
                                 : QSettings().value(SettingsKey::SignKeyId).toString();
}

/** Whether packages can be signed with the key; if not, that is told. */
bool isUsable(const QString &keyId, Console &console)
{
    const auto fail = [&console](const QString &text) {
        console.error(QStringLiteral("key"), text);
        return false;
    };
    if (keyId.isEmpty())
        return fail(QCoreApplication::translate(
            "cli", "No key is chosen to sign packages with. Name one with --key."));
    const KeyListing listing = KeyListing::read();
    const QString key = SignProcess::keyText(listing.keys, keyId);
    const QString obstacle = key.isEmpty() ? QCoreApplication::translate("cli", "not in the key ring")
                                           : listing.unusable.value(key);
    if (!obstacle.isEmpty())
        return fail(QCoreApplication::translate("cli", "The key %1 cannot sign: %2")
                        .arg(key.isEmpty() ? keyId : key, obstacle));
    if (listing.warnings.contains(key))
        console.remark(listing.warnings.value(key));
    return true;
}
} // namespace

ExitCode Commands::sign(const Invocation &invocation, Console &console)
{
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    const QString keyId = keyToUse(invocation);
    const PackageSelection selection(invocation.others(), PackageSelection::Names, invocation);
    const bool isAnyMeant = !selection.of(session.shell().packages()).isEmpty();
    if (isAnyMeant && !isUsable(keyId, console))
        return ExitCode::Failed;
    const auto selected = session.runFor(selection, [&](const QList<PackageInfoPtr> &packages) {
        session.shell().signPackages(packages, keyId);
    });
    if (selected.packages.isEmpty())
        return ExitCode::Failed;
    const auto done = session.replaced();
    for (const PackageInfoPtr &package : done)
        console.line(QCoreApplication::translate("cli", "Signed: %1").arg(shownPackage(*package)));
    console.object({{QStringLiteral("signed"), PackageJson::array(done)}});
    const ExitCode code = session.exitCode();
    return code == ExitCode::Done && !selected.unmatched.isEmpty() ? ExitCode::Findings : code;
}

ExitCode Commands::keys(const Invocation &, Console &console)
{
    const auto known = readSecretKeys();
    if (!known) {
        console.error(QStringLiteral("key"),
                      QCoreApplication::translate("cli", "gpg does not list its keys."));
        return ExitCode::Failed;
    }
    const QStringList texts = known->isEmpty() ? QStringList() : SignProcess::keys();
    const QString chosen = QSettings().value(SettingsKey::SignKeyId).toString();
    QJsonArray array;
    for (const SigningKey &key : *known) {
        const QString id = key.fingerprint.right(ShortId);
        // Keys are named by their short ids in the settings and in the signatures of packages.
        const SigningKey found = SigningKey::find(*known, id);
        const bool isChosen = !chosen.isEmpty() && key.fingerprint.endsWith(chosen, Qt::CaseInsensitive);
        const QString user = SignProcess::keyText(texts, id).section(QLatin1String(" ["), 0, -2);
        const QString remark = found.state == SigningKey::Usable ? key.warning(QDateTime::currentDateTime())
                                                                 : found.obstacle();
        QString line = key.fingerprint + QLatin1Char(' ') + user;
        if (!remark.isEmpty())
            line += QStringLiteral(" (%1)").arg(remark);
        if (isChosen)
            line += QStringLiteral(" [%1]").arg(QCoreApplication::translate("cli", "chosen"));
        console.line(line);
        array.append(QJsonObject{
            {QStringLiteral("fingerprint"), key.fingerprint},
            {QStringLiteral("user"), user},
            {QStringLiteral("state"), QLatin1String(wordOf(found.state))},
            {QStringLiteral("expires"),
             key.expires.isValid() ? QJsonValue(key.expires.toUTC().toString(Qt::ISODate)) : QJsonValue()},
            {QStringLiteral("chosen"), isChosen}});
    }
    console.object({{QStringLiteral("keys"), array}});
    return ExitCode::Done;
}
