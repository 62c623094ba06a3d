// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

struct JobContext;
struct PackageInfo;

/** Puts packages back that a job had taken out for a replacement, when the job was cut short before that was in. */
class ReplacedPackages
{
public:
    explicit ReplacedPackages(JobContext &context)
        : m_context(context)
    { }

    /** Puts back what the folders of PackageBackup keep. Returns the folders for which that failed. */
    QStringList putBack();

private:
    JobContext &m_context;
    QHash<QString, QByteArray> m_checksums; ///< SHA256 by pool file, once they were asked for

    bool putBackFrom(const QString &folder);
    QStringList poolFilesOf(const PackageInfo &package);
    bool isComplete(const PackageInfo &package, const QString &kept, const QStringList &poolFiles);
    QByteArray checksumOf(const QString &poolFile);
};
