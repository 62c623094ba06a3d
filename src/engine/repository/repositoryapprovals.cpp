// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/repositoryapprovals.h"

#include "core/settingskeys.h"

#include <QDateTime>
#include <QSettings>

#include <algorithm>

namespace
{
QString entry(const QString &repository, const QByteArray &digest)
{
    return repository + QLatin1Char('-') + QString::fromLatin1(digest.toHex());
}
} // namespace

bool RepositoryApprovals::contain(const QString &repository, const QByteArray &digest) const
{
    return m_settings.contains(SettingsKey::ApprovedRepositories + QLatin1Char('/')
                               + entry(repository, digest));
}

void RepositoryApprovals::add(const QString &repository, const QByteArray &digest)
{
    m_settings.beginGroup(SettingsKey::ApprovedRepositories);
    m_settings.setValue(entry(repository, digest), QDateTime::currentMSecsSinceEpoch());
    QStringList entries = m_settings.allKeys();
    const auto time = [this](const QString &key) { return m_settings.value(key).toLongLong(); };
    std::stable_sort(entries.begin(), entries.end(), [&time](const QString &a, const QString &b) {
        return time(a) > time(b);
    });
    for (const QString &old : entries.mid(Most))
        m_settings.remove(old);
    m_settings.endGroup();
}
