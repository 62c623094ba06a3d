// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>
#include <QStringList>

/**
 * Signs package files by means of the installed script, and lists the keys of the user's key ring. Everything here
 * runs programs: not for the interface thread.
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

private:
    QString m_scriptDir;
    QString m_log;
};
