// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <QJsonArray>
#include <QJsonObject>

/** What the program did in one run. */
struct CliResult
{
    int code = -1; ///< -1000 when it crashed or did not end in time
    QByteArray output;
    QByteArray errors;

    const char *said() const { return errors.constData(); }
    /** The object on standard output; empty when there is anything else. */
    QJsonObject json() const;
    /** The errors of a run with --json; a line that is none gives an empty object. */
    QList<QJsonObject> jsonErrors() const;
    /** The codes of these errors, separated by blanks. */
    QString errorCodes() const;
};

/** The real program on a repository, which reprepro itself judges. */
class CliHarness
{
public:
    QTemporaryDir folder{QStringLiteral("/tmp/vcXXXXXX")};

    QString at(const QString &name) const { return folder.filePath(name); }
    QString repo() const { return at(QStringLiteral("my repo")); }

    /** Runs the program without a terminal, in the folder. */
    CliResult run(const QStringList &arguments, const QByteArray &input = {}) const;
    /** The same for a command on the repository, with --json. */
    CliResult json(const char *command, const QStringList &words, const QByteArray &input = {}) const;
    /** Starts it as the leader of a process group of its own. */
    void start(QProcess *process, const QStringList &arguments) const;
    static CliResult resultOf(QProcess *process);

    /** A failure ends the test program. */
    void create(const QStringList &options = {}) const;
    /** Builds the package in a new folder. */
    QString deb(const DebBuilder &deb);
    QString deb(const char *name, const char *version = "1.0");

    QString reprepro(const QStringList &arguments) const;
    /**
     * Whether reprepro lists just these packages ("name version architecture", sorted, separated by commas), its own
     * checks find nothing, and nothing else lies in the pool.
     */
    bool holds(const QString &packages, const QString &codename = QStringLiteral("dogwood")) const;

private:
    int m_builds = 0;
};

/** "name version architecture" of each, sorted, separated by commas. */
QString listed(const QJsonValue &packages);
