// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testenvironment.h"

#include "support/literals.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

TestEnvironment::TestEnvironment()
    // Short, because the path of gpg-agent's socket has a limited length.
    : m_home("/tmp/vtXXXXXX"_s)
{
    const QByteArray home = m_home.path().toLocal8Bit();
    qputenv("HOME", home);
    qputenv("XDG_CONFIG_HOME", QByteArray(home + "/.config"));
    qputenv("XDG_CACHE_HOME", QByteArray(home + "/.cache"));
    qputenv("XDG_DATA_HOME", QByteArray(home + "/.local/share"));
    qputenv("XDG_RUNTIME_DIR", QByteArray(home + "/run"));
    qputenv("GNUPGHOME", QByteArray(home + "/gnupg"));
    // A test that looks for temporary files must not find files of other programs.
    qputenv("TMPDIR", QByteArray(home + "/tmp"));
    // A test must not call services of this machine, so there is no bus unless a test names one.
    if (qEnvironmentVariableIsEmpty("DBUS_SYSTEM_BUS_ADDRESS"))
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", QByteArray("unix:path=" + home + "/bus"));
    // Without an address libdbus starts a bus, from a process that it forks beside our threads: it can hang there.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        qputenv("DBUS_SESSION_BUS_ADDRESS", QByteArray("unix:path=" + home + "/session-bus"));
    for (const char *folder : {"/.config", "/.cache", "/run", "/gnupg", "/tmp"}) {
        const QString path = m_home.path() + QLatin1String(folder);
        QDir().mkpath(path);
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
}

TestEnvironment::~TestEnvironment()
{
    // Ends the agent that gpg started for this GNUPGHOME; it would outlive the test.
    if (haveTool("gpgconf"))
        QProcess::execute("gpgconf"_s, {"--kill"_s, "all"_s});
}

bool haveTool(const char *program)
{
    return !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
}

void writeFile(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray treeOf(const QString &folder)
{
    QByteArrayList lines;
    QDirIterator files(
        folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QByteArray bytes = files.fileInfo().isFile() ? readFile(path) : QByteArray();
        lines.append(path.toUtf8() + ' '
                     + QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
    }
    std::sort(lines.begin(), lines.end());
    return lines.join('\n');
}

void writeScript(const QString &path, const QByteArray &text)
{
    writeFile(path, text);
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

QString runShell(const QString &script, const QString &folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start("bash"_s, {"-o"_s, "pipefail"_s, "-ec"_s, script});
    process.waitForFinished(-1);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(script), process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

QByteArray noise(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 1;
    for (char &byte : bytes)
        byte = static_cast<char>((state = state * 1664525U + 1013904223U) >> 24U);
    return bytes;
}
