// SPDX-License-Identifier: GPL-3.0-or-later
#include "victim.h"

#include "support/testenvironment.h"

#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr int Minute = 60000; // milliseconds
const QByteArray mountName("archivemount");

struct Process
{
    pid_t id = 0;
    pid_t parent = 0;
    QByteArray name;
};

QVector<Process> processes()
{
    QVector<Process> all;
    const QStringList ids = QDir("/proc"_s).entryList({"[0-9]*"_s}, QDir::Dirs);
    for (const QString &id : ids) {
        QFile file("/proc/%1/stat"_s.arg(id));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        // The name is in parentheses and can contain any characters.
        const QByteArray stat = file.readAll();
        const int end = stat.lastIndexOf(')');
        const int begin = stat.indexOf('(') + 1;
        all.append({id.toInt(), stat.mid(end + 2).split(' ').value(1).toInt(), stat.mid(begin, end - begin)});
    }
    return all;
}

QVector<Process> descendants(pid_t ancestor)
{
    const QVector<Process> all = processes();
    QVector<Process> found;
    QVector<pid_t> parents{ancestor};
    while (!parents.isEmpty()) {
        const pid_t parent = parents.takeFirst();
        for (const Process &process : all) {
            if (process.parent == parent) {
                found.append(process);
                parents.append(process.id);
            }
        }
    }
    return found;
}
} // namespace

void Victim::adoptOrphans()
{
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
}

Victim::Victim(const QString &program, const QStringList &arguments, bool says)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD"_s, QStringLiteral(FAULT_STEPS));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(program, arguments);
    if (!m_process.waitForStarted(Minute))
        qFatal("%s does not start", qPrintable(program));
    while (says && nextLine() != "begun\n")
        if (m_process.state() == QProcess::NotRunning)
            qFatal("%s does not begin: %s", qPrintable(program), m_words.constData());
}

Victim::~Victim()
{
    kill(true);
    waitForOrphans();
}

QByteArray Victim::nextLine()
{
    while (!m_process.canReadLine())
        if (!m_process.waitForReadyRead(Minute))
            break;
    QByteArray line = m_process.readLine();
    m_words += line;
    return line;
}

bool Victim::endsWithin(int time)
{
    return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(time);
}

void Victim::kill(bool withChildren)
{
    const auto id = static_cast<pid_t>(m_process.processId());
    const QVector<Process> children = withChildren && id > 0 ? descendants(id) : QVector<Process>();
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished(Minute);
    }
    for (const Process &child : children)
        ::kill(child.id, SIGKILL);
}

void Victim::waitForOrphans()
{
    const QVector<Process> all = processes();
    for (const Process &process : all) {
        if (process.parent == ::getpid() && process.name == "reprepro")
            ::waitpid(process.id, nullptr, 0);
    }
    // All other remaining processes were killed, or are mounts that work.
    QElapsedTimer time;
    time.start();
    QByteArray left;
    while (!time.hasExpired(Minute / 3)) {
        left.clear();
        for (const Process &process : processes()) {
            if (process.parent != ::getpid() || process.id == m_process.processId()
                || process.name == mountName || process.name == "dbus-daemon" || process.name == "gpg-agent")
                continue;
            if (::waitpid(process.id, nullptr, WNOHANG) == 0)
                left += process.name + " in " + readFile("/proc/%1/syscall"_s.arg(process.id)) + ' ';
        }
        if (left.isEmpty())
            return;
        QThread::msleep(1);
    }
    qFatal("programs are left that do not end: %s", left.constData());
}

QString Victim::words()
{
    m_words += m_process.readAll();
    return QString::fromLocal8Bit(m_words);
}
