// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Creates keys in the test's own key ring. */
namespace TestKeys
{
/** The output of gpg. When gpg fails, the test program ends. */
QString gpg(const QStringList &arguments, const QByteArray &input = {});
/**
 * Creates a key and returns its fingerprint. `expire` is in gpg's form, such as "10d"; `options` precede the command.
 */
QString make(const QString &userId,
             const QString &usage = QStringLiteral("sign"),
             const QString &expire = QStringLiteral("never"),
             const QString &passphrase = QString(),
             const QStringList &options = {});
/** An expired key. */
QString makeExpired(const QString &userId);
QString makeRevoked(const QString &userId);
/** The text of a key in lists. */
QString text(const QString &userId, const QString &fingerprint);
/** Whether debsig-verify(1) accepts the package as signed with this key. */
bool verifies(const QString &package, const QString &fingerprint);
} // namespace TestKeys
