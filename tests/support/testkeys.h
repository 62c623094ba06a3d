// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Makes keys in the test's own key ring. */
namespace TestKeys
{
/** What gpg printed; fails the program when it failed. */
QString gpg(const QStringList &arguments, const QByteArray &input = {});
/** Makes a key and returns its fingerprint. `expire` is gpg's, for example "10d"; `options` go before the command. */
QString make(const QString &userId,
             const QString &usage = QStringLiteral("sign"),
             const QString &expire = QStringLiteral("never"),
             const QString &passphrase = QString(),
             const QStringList &options = {});
/** A key whose time is over. */
QString makeExpired(const QString &userId);
QString makeRevoked(const QString &userId);
/** The text that lists show for a key. */
QString text(const QString &userId, const QString &fingerprint);
/** Whether debsig-verify(1) accepts the package as signed with this key. */
bool verifies(const QString &package, const QString &fingerprint);
} // namespace TestKeys
