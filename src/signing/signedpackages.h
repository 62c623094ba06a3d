// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <utility>

/**
 * Records which key has signed which package of a repository, in the file packages.conf in the repository's root
 * directory. Component, architecture and name identify a package. Each call reads the file again: not for the interface
 * thread.
 */
class SignedPackages
{
public:
    /** `file` is packagesConfPath(). With an empty path there is no record. */
    explicit SignedPackages(QString file)
        : m_file(std::move(file))
    { }

    static QString packagesConfPath(const QString &repoPath)
    {
        return repoPath + QLatin1String("/packages.conf");
    }
    /** The key of the package in the file. */
    static QString keyInfoName(const PackageInfo &package);

    /** The text of the key that signed the package; empty when the package is unsigned. */
    QString keyInfo(const PackageInfo &package) const;
    /** The texts of all keys, by keyInfoName() of their packages. */
    QHash<QString, QString> allKeyInfo() const;
    /** Sets the signing keys of the packages. */
    void mark(QList<PackageInfoPtr> *packages) const;

    // These return false when the file cannot be written.
    bool saveKeyInfo(const PackageInfo &package) const;
    bool removeKeyInfo(const PackageInfo &package) const;
    /** Removes all entries whose name is not in `names`. */
    bool keepKeyInfo(const QSet<QString> &names) const;

private:
    /** False when the file is a pipe or a device: Qt would wait for ever for its content. */
    bool isUsable() const;

    QString m_file;
};
