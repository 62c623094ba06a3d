// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/testenvironment.h"

/** A shell script in front of a program as long as it lives: the program, which it knows as $real, runs behind it. */
class StandIn
{
public:
    StandIn(const QString &folder, const char *program, const QByteArray &script = {})
        : m_file(folder + u'/' + QLatin1String(program))
        , m_real(QStandardPaths::findExecutable(QLatin1String(program)).toLocal8Bit())
        , m_path("PATH", ScopedVariable::pathBehind(folder))
    {
        set(script);
    }

    void set(const QByteArray &script) const
    {
        // The engine gives reprepro a PATH without the usual tools.
        writeScript(m_file,
                    "#!/bin/sh\nreal='" + m_real + "' given=$PATH PATH=/usr/bin:/bin\n" + script
                        + "\nPATH=$given exec \"$real\" \"$@\"\n");
    }

private:
    QString m_file;
    QByteArray m_real;
    ScopedVariable m_path;
};
