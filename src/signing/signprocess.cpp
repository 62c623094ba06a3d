// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/signprocess.h"

#include "signing/keylisting.h"

#include <QtCrypto>

#include <QCoreApplication>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QStandardPaths>

namespace
{
const QLatin1String scriptName("/velt-admin-repo-sign.sh");
constexpr int ShortIdLength = 8;

/**
 * The folder of the script that was installed together with the running program, or else the system-wide folder. Never
 * a folder of the user: a program that can write there could change what a signature covers.
 */
QString findScriptDir()
{
    const QString application = QLatin1Char('/') + QStringLiteral("velt-admin-repo");
    const QString beside
        = QFileInfo(QCoreApplication::applicationDirPath() + QLatin1String("/../share")).canonicalFilePath();
    if (!beside.isEmpty() && QFileInfo::exists(beside + application + scriptName))
        return beside + application;
    // The user's own folder comes first, and /usr/local of the administrator second.
    constexpr int SystemWide = 2;
    return QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation).value(SystemWide)
           + application;
}
} // namespace

SignProcess::SignProcess(QObject *parent)
    : ProcessUtils(parent)
    , m_scriptDir(findScriptDir())
{ }

QStringList SignProcess::keys()
{
    // The key store has no time limit, and a missing gpg looks to it like an empty key ring.
    if (!readSecretKeys())
        return {};
    static QMutex oneAtATime;
    const QMutexLocker lock(&oneAtATime);
    const QCA::Initializer initializer;
    QCA::KeyStoreManager::start(QStringLiteral("qca-gnupg"));
    QCA::KeyStoreManager manager;
    manager.waitForBusyFinished();
    const QCA::KeyStore store(QStringLiteral("qca-gnupg"), &manager);
    QStringList texts;
    const auto entries = store.entryList();
    for (const QCA::KeyStoreEntry &entry : entries)
        texts.append(QStringLiteral("%1 [%2]").arg(entry.name(), entry.id().right(ShortIdLength)));
    return texts;
}

QString SignProcess::keyText(const QStringList &keys, const QString &keyId)
{
    const QString ending = QLatin1Char('[') + keyId.right(ShortIdLength) + QLatin1Char(']');
    for (const QString &key : keys) {
        if (!keyId.isEmpty() && key.endsWith(ending, Qt::CaseInsensitive))
            return key;
    }
    return {};
}

bool SignProcess::sign(const QString &sourcePath, const QString &destinationPath, const QString &keyId)
{
    m_log.clear();
    const bool isSigned = run(m_scriptDir + scriptName, {sourcePath, destinationPath, keyId});
    m_log += output();
    m_log += errorOutput();
    return isSigned;
}
