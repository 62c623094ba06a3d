// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <sys/types.h>

/** A program that will be killed, together with the programs that it has started. */
class Victim
{
public:
    /** Makes this process the new parent of orphaned processes, so that it can wait for their end. */
    static void adoptOrphans();

    /** Starts the program. With `says` it waits until the program prints "begun". */
    Victim(const QString &program, const QStringList &arguments, bool says = true);
    ~Victim();
    Q_DISABLE_COPY(Victim)

    /** Whether the program has ended by itself within this time, in milliseconds. */
    bool endsWithin(int time);
    /**
     * Kills the program. With `withChildren` it also kills the programs that it has started; otherwise they continue.
     */
    void kill(bool withChildren);
    void terminate() { m_process.terminate(); }
    /** Waits until all programs that it has started have ended, except mounts. */
    void waitForOrphans();
    /** The output of the program, after its end. */
    QString words();
    QByteArray nextLine();

private:
    QProcess m_process;
    QByteArray m_words;
};
