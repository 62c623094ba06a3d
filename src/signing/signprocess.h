// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/processutils.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

/**
 * Signs package files by means of the installed script, lists the keys of the user's key ring, and keeps the record
 * of a repository's signed packages, the file packages.conf in its root directory. Everything here runs programs or
 * reads files: not for the interface thread.
 */
class SignProcess : public ProcessUtils
{
    Q_OBJECT
public:
    explicit SignProcess(QObject *parent = nullptr);

    /**
     * The texts ("user id [short id]") of all keys in the key ring, other people's too. Empty when there is no key
     * ring, or gpg is missing or does not answer. Callable from any thread but the interface's.
     */
    static QStringList keys();
    /** The first of `keys` that `keyId` (a fingerprint or its last 16 or 8 digits) names; empty when none is. */
    static QString keyText(const QStringList &keys, const QString &keyId);

    /**
     * Writes a signed copy of the package file `sourcePath` to `destinationPath`. On failure the destination is as it
     * was and log() says why.
     */
    bool sign(const QString &sourcePath, const QString &destinationPath, const QString &keyId);
    /** What the last signing said, standard output first. */
    QString log() const { return m_log; }

    static QString packagesConfPath(const QString &repositoryDirectory);

    // Each opens the file anew; with an empty path they do nothing. A package is known by component, architecture
    // and name. False when the file cannot be written.
    static bool saveKeyInfo(const QString &packagesConfPath, const PackageInfo &package);
    static bool removeKeyInfo(const QString &packagesConfPath, const PackageInfo &package);
    /** Removes all entries but those of these names, see keyInfoName(). */
    static bool keepKeyInfo(const QString &packagesConfPath, const QSet<QString> &names);
    /** The text of the key that signed the package; empty when it is unsigned. */
    static QString keyInfo(const QString &packagesConfPath, const PackageInfo &package);

    /** All entries at once, by the name that keyInfoName() gives a package. */
    static QHash<QString, QString> allKeyInfo(const QString &packagesConfPath);
    static QString keyInfoName(const PackageInfo &package);

private:
    QString m_scriptDir;
    QString m_log;
};
