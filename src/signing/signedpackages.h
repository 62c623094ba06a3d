// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <utility>

/**
 * Which key has signed which package of a repository: the file packages.conf in the repository's root directory. A
 * package is known by component, architecture and name. Each call opens the file anew: not for the interface thread.
 */
class SignedPackages
{
public:
    /** `file` is packagesConfPath(); an empty one stands for no record. */
    explicit SignedPackages(QString file)
        : m_file(std::move(file))
    { }

    static QString packagesConfPath(const QString &repoPath)
    {
        return repoPath + QLatin1String("/packages.conf");
    }
    /** The package's name in the record. */
    static QString keyInfoName(const PackageInfo &package);

    /** The text of the key that signed the package; empty when the package is unsigned. */
    QString keyInfo(const PackageInfo &package) const;
    /** All keys, by keyInfoName() of their packages. */
    QHash<QString, QString> allKeyInfo() const;
    /** Enters the keys into the packages. */
    void mark(QList<PackageInfoPtr> *packages) const;

    // False when the file cannot be written.
    bool saveKeyInfo(const PackageInfo &package) const;
    bool removeKeyInfo(const PackageInfo &package) const;
    /** Removes all entries but those of these names. */
    bool keepKeyInfo(const QSet<QString> &names) const;

private:
    /** Qt would wait for ever for what comes out of a pipe. */
    bool isUsable() const;

    QString m_file;
};
