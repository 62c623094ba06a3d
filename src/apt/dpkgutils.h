// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

/** Asks dpkg about package files and versions. Blocks until dpkg has answered; remembers nothing but the last error. */
class DpkgUtils : public ProcessUtils
{
    Q_OBJECT
public:
    using ProcessUtils::ProcessUtils;

    /** Reads the control data of the package file; output() then holds them, see DpkgOutput::packageInfo(). */
    bool packageInformation(const QString &path);

    /**
     * True when the relation holds. `op` is written as in a Depends field or as dpkg's "lt", "gt" and so on; "<" and
     * ">" include equality, as dpkg has it. False also when dpkg could not tell: then errorText() says why.
     */
    bool compareVersions(const QString &versionA, const QString &op, const QString &versionB);

    /** Why the last question got no answer; empty after a success and after a relation that does not hold. */
    QString errorText() const { return m_errorText; }

private:
    bool ask(const QStringList &arguments);

    QString m_errorText;
};
