// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <sys/types.h>

/** A program that is going to be killed, with those that it has started. */
class Victim
{
public:
    /** Makes this process the parent of all whose own has died, so that they can be waited for. */
    static void adoptOrphans();

    /** Starts it and waits until it says "begun", if it is to. */
    Victim(const QString &program, const QStringList &arguments, int fileSize = 0, bool says = true);
    ~Victim();
    Q_DISABLE_COPY(Victim)

    /** True when it has ended by itself in this time, in milliseconds. */
    bool endsWithin(int time);
    /** Kills it; those that it has started too, or they live on. */
    void kill(bool withChildren);
    /** Kills one that it has started and that has this name; false when there was none until it ended. */
    bool killChild(const QByteArray &name);
    void terminate() { m_process.terminate(); }
    /** Waits until nobody of those that it had started is left but mounts. */
    void waitForOrphans();
    /** What it has printed, once it has ended. */
    QString words();
    QByteArray nextLine();

private:
    QProcess m_process;
    QByteArray m_words;
};
