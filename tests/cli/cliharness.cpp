// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cliharness.h"

namespace
{
constexpr int Patience = 60000; // milliseconds
} // namespace

QJsonObject CliResult::json() const
{
    return QJsonDocument::fromJson(output).object();
}

QList<QJsonObject> CliResult::jsonErrors() const
{
    QList<QJsonObject> found;
    for (const QByteArray &line : errors.split('\n')) {
        if (!line.isEmpty())
            found.append(QJsonDocument::fromJson(line).object().value("error"_s).toObject());
    }
    return found;
}

QString CliResult::errorCodes() const
{
    QStringList codes;
    for (const QJsonObject &error : jsonErrors())
        codes.append(error.value("code"_s).toString("no JSON"_s));
    return codes.join(u' ');
}

CliResult CliHarness::run(const QStringList &arguments, const QByteArray &input) const
{
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start(QStringLiteral(PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    return resultOf(&process);
}

CliResult CliHarness::json(const char *command, const QStringList &words, const QByteArray &input) const
{
    return run(QStringList{QLatin1String(command), "--json"_s, repo()} + words, input);
}

void CliHarness::start(QProcess *process, const QStringList &arguments) const
{
    process->setWorkingDirectory(folder.path());
    process->start("setsid"_s, QStringList{QStringLiteral(PROGRAM)} + arguments);
    process->closeWriteChannel();
    if (!process->waitForStarted())
        qFatal("the program does not start");
}

CliResult CliHarness::resultOf(QProcess *process)
{
    const bool ended = process->waitForFinished(Patience) && process->exitStatus() == QProcess::NormalExit;
    const CliResult result{ended ? process->exitCode() : -1000,
                           process->readAllStandardOutput(),
                           process->readAllStandardError()};
    process->kill();
    process->waitForFinished();
    return result;
}

void CliHarness::create(const QStringList &options) const
{
    const QStringList given = options.isEmpty() ? "--architectures|amd64"_list : options;
    const CliResult made
        = run(QStringList{"create"_s, repo(), "--codename"_s, "dogwood"_s, "--components"_s, "main,contrib"_s}
              + given);
    if (made.code != 0)
        qFatal("%s", made.errors.constData());
}

QString CliHarness::deb(const DebBuilder &deb)
{
    return deb.build(at("build %1"_s.arg(++m_builds)));
}

QString CliHarness::deb(const char *name, const char *version)
{
    return deb(DebBuilder(QLatin1String(name)).version(QLatin1String(version)));
}

QString CliHarness::reprepro(const QStringList &arguments) const
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("reprepro"_s, QStringList{"-b"_s, repo()} + arguments);
    process.waitForFinished(Patience);
    const QString output = QString::fromUtf8(process.readAll());
    return process.exitCode() == 0 ? output : "failed: "_s + output;
}

bool CliHarness::holds(const QString &packages, const QString &codename) const
{
    const QString format = "${package} ${version} ${$architecture}\\n"_s;
    QStringList lines
        = reprepro({"--list-format"_s, format, "list"_s, codename}).split(u'\n', Qt::SkipEmptyParts);
    lines.sort();
    QString problems = reprepro({"check"_s}) + reprepro({"checkpool"_s}) + reprepro({"dumpunreferenced"_s});
    problems.remove(QRegularExpression("Check(ing|s)? [^\\n]*\\n"_s));
    if (lines.join(u',') == packages && problems.isEmpty())
        return true;
    qWarning() << lines << problems;
    return false;
}

QString listed(const QJsonValue &packages)
{
    QStringList lines;
    for (const QJsonValue &package : packages.toArray())
        lines.append("%1 %2 %3"_s.arg(package["package"_s].toString(),
                                      package["version"_s].toString(),
                                      package["architecture"_s].toString()));
    lines.sort();
    return lines.join(u',');
}
