// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/testenvironment.h"

/**
 * A throw-away system with this program installed, an ordinary user "tester" with a closed home, and two equal
 * repositories of his that hold one package, "fizz". The bus, polkit, the service manager, the servers and apt are the
 * real ones. What happens inside changes nothing outside.
 */
class ThrowAwaySystem
{
public:
    /** A repository that nobody but its owner may read, with links that lead out of it. */
    static const QString closedRepo;
    /** A repository that others may read, if they got through to it. */
    static const QString openRepo;

    /** Why there can be no such system here; empty when there can. */
    static QString obstacle();

    /** Starts it, with everything in place. Returns what went wrong; empty when nothing did. */
    QString boot();
    /** Cuts the power and starts it anew. False when it does not come up. */
    bool restart();
    bool isRunning() const { return m_box.state() == QProcess::Running; }
    /** False when it does not end. */
    bool remove();

    /** A folder that is /shared inside. */
    QString sharedFolder() const { return m_folder.filePath(QStringLiteral("shared")); }

    /** What a bash script printed that root ran inside; with its exit code and errors when it failed. */
    QString run(const QString &script, const QStringList &arguments = {}, const QString &user = {}) const;
    /** The same as the ordinary user. */
    QString asUser(const QString &script, const QStringList &arguments = {}) const;

    /** What the helper answers the ordinary user, who asks over the system bus. */
    QString ask(const QString &method, const QStringList &arguments) const;
    QString publish(const QString &path, int port, int protocol) const;
    QString unpublish(int port, int protocol) const;
    /** Whether polkit lets the ordinary user do all that the helper does. Returns what went wrong. */
    QString allow(bool isAllowed) const;

    /** All that publishing may change: files with their contents, and which services run. */
    QString state() const;
    /** What apt-get of the ordinary user prints who has this source and no other. */
    QString apt(const QString &source, const QString &command) const;
    /** The last lines of what the services have written. */
    QString logs() const;

private:
    bool isReady();

    QTemporaryDir m_folder{QStringLiteral("/tmp/vaXXXXXX")};
    QProcess m_box;
};

/** What the programs share that look at a throw-away system: it boots before the first test and ends after the last. */
class ThrowAwayTest : public QObject
{
    Q_OBJECT

protected:
    ThrowAwaySystem m_system;
    const QString closedRepo = ThrowAwaySystem::closedRepo;
    const QString openRepo = ThrowAwaySystem::openRepo;

    QString box(const QString &script, const QStringList &arguments = {}) const
    {
        return m_system.run(script, arguments);
    }
    QString asUser(const QString &script, const QStringList &arguments = {}) const
    {
        return m_system.asUser(script, arguments);
    }
    /** What a program needs once, when the system runs. */
    virtual void prepare() { }

private Q_SLOTS:
    /** Skips the program where there can be no such system; fails it where root has said that all tools are there. */
    void initTestCase();
    /** Tells what the services have written when a test has failed. */
    void cleanup();
    void cleanupTestCase();
};
