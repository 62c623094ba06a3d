// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Sets an environment variable while it lives. */
class ScopedVariable
{
public:
    ScopedVariable(const char *name, const QString &value)
        : m_name(name)
        , m_before(qgetenv(name))
    {
        qputenv(name, value.toLocal8Bit());
    }
    ~ScopedVariable() { m_before.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_before); }
    Q_DISABLE_COPY(ScopedVariable)

    /** PATH with a folder of stand-ins before it. */
    static QString pathBehind(const QString &folder) { return folder + u':' + qEnvironmentVariable("PATH"); }

private:
    const char *m_name;
    QByteArray m_before;
};
