// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

/** Asks dpkg about package files and versions, and waits for the answer. Stores only the last error. */
class DpkgUtils : public ProcessUtils
{
    Q_OBJECT
public:
    using ProcessUtils::ProcessUtils;

    /** Reads the control data of the package file into output(), see DpkgOutput::packageInfo(). */
    bool packageInformation(const QString &path);

    /**
     * True when the relation holds. `op` is an operator of a Depends field, or dpkg's "lt", "gt" and so on. "<" and ">"
     * include equality, as in dpkg. False also when dpkg failed; then errorText() tells the reason.
     */
    bool compareVersions(const QString &versionA, const QString &op, const QString &versionB);

    /** Why the last question failed; empty after a success and after a relation that does not hold. */
    QString errorText() const { return m_errorText; }

private:
    bool ask(const QStringList &arguments);

    QString m_errorText;
};
