// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>
#include <QStringList>

/**
 * Signs package files with the installed script, and lists the keys of the user's key ring. All functions run programs:
 * not for the interface thread.
 */
class SignProcess : public ProcessUtils
{
    Q_OBJECT
public:
    explicit SignProcess(QObject *parent = nullptr);

    /**
     * The texts ("user id [short id]") of all keys in the key ring, also of other people's keys. Empty when there is no
     * key ring, or when gpg is missing or does not answer. Any thread except the interface thread may call it.
     */
    static QStringList keys();
    /** The first of `keys` with this id (a fingerprint, or its last 16 or 8 digits); empty when there is none. */
    static QString keyText(const QStringList &keys, const QString &keyId);

    /**
     * Writes a signed copy of the package file `sourcePath` to `destinationPath`. On failure the destination is
     * unchanged and log() tells the reason.
     */
    bool sign(const QString &sourcePath, const QString &destinationPath, const QString &keyId);
    /** The output of the last signing, standard output first. */
    QString log() const { return m_log; }

private:
    QString m_scriptDir;
    QString m_log;
};
