// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/signprocess.h"

#include "core/regularfile.h"
#include "core/settingsformat.h"
#include "signing/keylisting.h"

#include <QtCrypto>

#include <QCoreApplication>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

namespace
{
const QLatin1String scriptName("/velt-admin-repo-sign.sh");
const QLatin1String keyInfoGroup("KeyInfo");
constexpr int ShortIdLength = 8;

/**
 * The folder of the script that was installed together with the running program, else the system-wide one. Never a
 * folder of the user's: whatever can write there would decide what a signature covers.
 */
QString findScriptDir()
{
    const QString application = QLatin1Char('/') + QStringLiteral("velt-admin-repo");
    const QString beside
        = QFileInfo(QCoreApplication::applicationDirPath() + QLatin1String("/../share")).canonicalFilePath();
    if (!beside.isEmpty() && QFileInfo::exists(beside + application + scriptName))
        return beside + application;
    // The user's own folder is the first, the administrator's local one the second.
    constexpr int SystemWide = 2;
    return QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation).value(SystemWide)
           + application;
}

/** Qt would wait for ever for what comes out of a pipe. */
bool isUsable(const QString &packagesConfPath)
{
    return !packagesConfPath.isEmpty() && RegularFile::refusal(packagesConfPath).isEmpty();
}

QString entryName(const PackageInfo &package)
{
    return keyInfoGroup + QLatin1Char('/') + SignProcess::keyInfoName(package);
}
} // namespace

SignProcess::SignProcess(QObject *parent)
    : ProcessUtils(parent)
    , m_scriptDir(findScriptDir())
{ }

QStringList SignProcess::keys()
{
    // The key store has no time limit of its own, and one that is missing it does not tell from an empty one.
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

QString SignProcess::packagesConfPath(const QString &repositoryDirectory)
{
    return repositoryDirectory + QLatin1String("/packages.conf");
}

bool SignProcess::saveKeyInfo(const QString &packagesConfPath, const PackageInfo &package)
{
    if (packagesConfPath.isEmpty())
        return true;
    if (!isUsable(packagesConfPath))
        return false;
    QSettings settings(packagesConfPath, SettingsFormat::ini());
    settings.setValue(entryName(package), package.signingKey);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

bool SignProcess::removeKeyInfo(const QString &packagesConfPath, const PackageInfo &package)
{
    // Without the file there is nothing to remove, and an empty one need not be made.
    if (packagesConfPath.isEmpty() || !QFileInfo::exists(packagesConfPath))
        return true;
    if (!isUsable(packagesConfPath))
        return false;
    QSettings settings(packagesConfPath, SettingsFormat::ini());
    settings.remove(entryName(package));
    settings.sync();
    return settings.status() == QSettings::NoError;
}

bool SignProcess::keepKeyInfo(const QString &packagesConfPath, const QSet<QString> &names)
{
    const QStringList entries = allKeyInfo(packagesConfPath).keys();
    if (std::all_of(
            entries.cbegin(), entries.cend(), [&](const QString &name) { return names.contains(name); }))
        return true;
    QSettings settings(packagesConfPath, SettingsFormat::ini());
    settings.beginGroup(keyInfoGroup);
    for (const QString &name : entries) {
        if (!names.contains(name))
            settings.remove(name);
    }
    settings.endGroup();
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QString SignProcess::keyInfo(const QString &packagesConfPath, const PackageInfo &package)
{
    if (!isUsable(packagesConfPath))
        return {};
    return QSettings(packagesConfPath, SettingsFormat::ini()).value(entryName(package)).toString();
}

QHash<QString, QString> SignProcess::allKeyInfo(const QString &packagesConfPath)
{
    QHash<QString, QString> entries;
    if (!isUsable(packagesConfPath))
        return entries;
    QSettings settings(packagesConfPath, SettingsFormat::ini());
    settings.beginGroup(keyInfoGroup);
    const QStringList names = settings.allKeys();
    for (const QString &name : names)
        entries.insert(name, settings.value(name).toString());
    return entries;
}

QString SignProcess::keyInfoName(const PackageInfo &package)
{
    return QStringLiteral("%1_%2_%3").arg(package.component, package.architecture, package.name);
}
