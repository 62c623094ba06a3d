// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/signedpackages.h"

#include "files/regularfile.h"
#include "files/settingsformat.h"

#include <QFileInfo>
#include <QSettings>

#include <algorithm>

namespace
{
const QLatin1String group("KeyInfo");

QString entryName(const PackageInfo &package)
{
    return group + QLatin1Char('/') + SignedPackages::keyInfoName(package);
}

bool written(QSettings *settings)
{
    settings->sync();
    return settings->status() == QSettings::NoError;
}
} // namespace

QString SignedPackages::keyInfoName(const PackageInfo &package)
{
    return QStringLiteral("%1_%2_%3").arg(package.component, package.architecture, package.name);
}

bool SignedPackages::isUsable() const
{
    return !m_file.isEmpty() && RegularFile::refusal(m_file).isEmpty();
}

QString SignedPackages::keyInfo(const PackageInfo &package) const
{
    if (!isUsable())
        return {};
    return QSettings(m_file, SettingsFormat::ini()).value(entryName(package)).toString();
}

QHash<QString, QString> SignedPackages::allKeyInfo() const
{
    QHash<QString, QString> entries;
    if (!isUsable())
        return entries;
    QSettings settings(m_file, SettingsFormat::ini());
    settings.beginGroup(group);
    const QStringList names = settings.allKeys();
    for (const QString &name : names)
        entries.insert(name, settings.value(name).toString());
    return entries;
}

void SignedPackages::mark(QList<PackageInfoPtr> *packages) const
{
    const QHash<QString, QString> known = allKeyInfo();
    if (known.isEmpty())
        return;
    for (PackageInfoPtr &package : *packages) {
        const QString key = known.value(keyInfoName(*package));
        if (key.isEmpty())
            continue;
        const auto record = QSharedPointer<PackageInfo>::create(*package);
        record->signingKey = key;
        package = record;
    }
}

bool SignedPackages::saveKeyInfo(const PackageInfo &package) const
{
    if (m_file.isEmpty())
        return true;
    if (!isUsable())
        return false;
    QSettings settings(m_file, SettingsFormat::ini());
    settings.setValue(entryName(package), package.signingKey);
    return written(&settings);
}

bool SignedPackages::removeKeyInfo(const PackageInfo &package) const
{
    // Without the file there is nothing to remove. Saving would create an empty file.
    if (m_file.isEmpty() || !QFileInfo::exists(m_file))
        return true;
    if (!isUsable())
        return false;
    QSettings settings(m_file, SettingsFormat::ini());
    settings.remove(entryName(package));
    return written(&settings);
}

bool SignedPackages::keepKeyInfo(const QSet<QString> &names) const
{
    const QStringList entries = allKeyInfo().keys();
    if (std::all_of(
            entries.cbegin(), entries.cend(), [&](const QString &name) { return names.contains(name); }))
        return true;
    QSettings settings(m_file, SettingsFormat::ini());
    settings.beginGroup(group);
    for (const QString &name : entries) {
        if (!names.contains(name))
            settings.remove(name);
    }
    settings.endGroup();
    return written(&settings);
}
