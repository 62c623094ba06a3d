// SPDX-License-Identifier: GPL-3.0-or-later
#include "throwawaysystem.h"

#include <unistd.h>

namespace
{
constexpr int Minute = 60000;
}

const QString ThrowAwaySystem::closedRepo = "/home/tester/Мой repo"_s;
const QString ThrowAwaySystem::openRepo = "/home/tester/open repo"_s;

QString ThrowAwaySystem::obstacle()
{
    QProcess check;
    check.start(QStringLiteral(SYSTEMDBOX), {"check"_s});
    if (!check.waitForFinished(Minute))
        return "the check does not end"_s;
    return check.exitCode() == 0 ? QString() : QString::fromUtf8(check.readAllStandardOutput().trimmed());
}

QString ThrowAwaySystem::boot()
{
    m_box.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_box.start(QStringLiteral(SYSTEMDBOX), {"boot"_s, m_folder.path()});
    if (!isReady())
        return "it does not boot"_s;

    runShell("DESTDIR=%1/stage '%2' --install '%3' >/dev/null"_s.arg(
        sharedFolder(), QStringLiteral(CMAKE_PROGRAM), QStringLiteral(BUILD_FOLDER)));
    const QString trouble = run(R"(cp -r --preserve=mode,links /shared/stage/. /
        systemctl daemon-reload; systemctl reload dbus
        rm -f /etc/apt/sources.list /etc/apt/sources.list.d/* /etc/vsftpd.conf
        useradd -m tester; chmod 700 /home/tester
        cd /home/tester
        repo=$1; mkdir -p "$repo/conf" package/DEBIAN package/usr/share/fizz
        printf '%s\n' 'Codename: birch' 'Suite: stable' 'Architectures: amd64' 'Components: main' 'Contents: compatsymlink' \
            >"$repo/conf/distributions"
        head -c 300000 /dev/urandom >package/usr/share/fizz/data
        printf '%s\n' 'Package: fizz' 'Version: 1.0' 'Architecture: amd64' 'Maintainer: T <t@example.org>' \
            'Section: admin' 'Priority: optional' 'Description: test' >package/DEBIAN/control
        dpkg-deb --root-owner-group -b package fizz_1.0_amd64.deb >/dev/null
        reprepro -s -b "$repo" includedeb birch fizz_1.0_amd64.deb
        reprepro -s -b "$repo" createsymlinks
        cp -r --preserve=mode,links "$repo" "$2"
        ln -s ../pool "$repo/dists/up"; ln -s birch "$repo/dists/a b"
        ln -s /usr/share/common-licenses/GPL-3 "$repo/pool/outwards"; ln -s / "$repo/dists/outwards"; echo key >"$repo/packages.conf"
        chown -R tester: /home/tester
        find "$repo" -type f -exec chmod 600 {} +; chmod 700 "$repo")"_s,
                                {closedRepo, openRepo});
    return trouble + allow(true);
}

bool ThrowAwaySystem::restart()
{
    m_box.write("restart\n");
    return isReady();
}

bool ThrowAwaySystem::remove()
{
    m_box.closeWriteChannel();
    return m_box.state() == QProcess::NotRunning || m_box.waitForFinished(Minute);
}

bool ThrowAwaySystem::isReady()
{
    QElapsedTimer time;
    time.start();
    while (!m_box.canReadLine() && m_box.state() != QProcess::NotRunning && !time.hasExpired(Minute))
        m_box.waitForReadyRead(1000);
    return m_box.readLine() == "ready\n";
}

QString ThrowAwaySystem::run(const QString &script, const QStringList &arguments, const QString &user) const
{
    QProcess process;
    const QStringList bash{"bash"_s, "-euc"_s, script, "box"_s};
    const QStringList as{"runuser"_s, "-u"_s, user, "--"_s, "env"_s, "HOME=/home/"_s + user};
    process.start(QStringLiteral(SYSTEMDBOX),
                  QStringList{"run"_s, m_folder.path()} + (user.isEmpty() ? QStringList() : as) + bash
                      + arguments);
    process.closeWriteChannel();
    if (!process.waitForFinished(3 * Minute))
        return "did not end"_s;
    QString output = QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return output;
    return "%1 [%2: %3]"_s.arg(output,
                               QString::number(process.exitCode()),
                               QString::fromUtf8(process.readAllStandardError()).trimmed());
}

QString ThrowAwaySystem::asUser(const QString &script, const QStringList &arguments) const
{
    return run(script, arguments, "tester"_s);
}

QString ThrowAwaySystem::ask(const QString &method, const QStringList &arguments) const
{
    return asUser(
        "busctl call --timeout=60 -- org.corvana.velt.repo / org.corvana.velt.repo.Manager \"$@\" 2>&1"_s,
        QStringList{method} + arguments);
}

QString ThrowAwaySystem::publish(const QString &path, int port, int protocol) const
{
    return ask("PublishRepo"_s, {"sii"_s, path, QString::number(port), QString::number(protocol)});
}

QString ThrowAwaySystem::unpublish(int port, int protocol) const
{
    return ask("UnpublishRepo"_s, {"ii"_s, QString::number(port), QString::number(protocol)});
}

QString ThrowAwaySystem::allow(bool isAllowed) const
{
    const QString rule = R"(polkit.addRule(function(action, subject) {
        if (action.id.indexOf("org.corvana.velt.repo.") == 0 && subject.user == "tester")
            return polkit.Result.%1;
    });)"_s.arg(isAllowed ? "YES"_s : "NO"_s);
    return run("printf %s \"$1\" >/etc/polkit-1/rules.d/10-test.rules; systemctl restart polkit"_s, {rule});
}

QString ThrowAwaySystem::state() const
{
    return run(R"(cd /etc
        find systemd/system vsftpd.conf* apt/sources.list.d -printf '%p %y %m %u %l\n' | sort
        find systemd/system vsftpd.conf* apt/sources.list.d -type f -exec sha256sum {} + | sort
        systemctl list-units --all --plain --no-legend 'public-repo-*' vsftpd.service | awk '{ print $1, $3 }')"_s);
}

QString ThrowAwaySystem::apt(const QString &source, const QString &command) const
{
    return asUser(
        R"(cd; mkdir -p apt/{sources.d,preferences.d,conf.d,lists/partial,cache/archives/partial}
        : >apt/status
        echo "$1" >apt/sources.list
        cat >apt/apt.conf <<END
Dir::Etc "$HOME/apt"; Dir::Etc::sourceparts "$HOME/apt/sources.d"; Dir::Etc::Parts "$HOME/apt/conf.d";
Dir::State "$HOME/apt"; Dir::State::status "$HOME/apt/status"; Dir::Cache "$HOME/apt/cache"; Dir::Log "$HOME/apt";
Dir::Bin::Methods::ftp "ftp";
END
        export APT_CONFIG=$HOME/apt/apt.conf
        apt-get $2 2>&1)"_s,
        {source, command});
}

QString ThrowAwaySystem::logs() const
{
    return run("journalctl -b --no-pager -n 40 -u 'public-repo*' -u vsftpd -u 'velt*'; "
               "tail /tmp/http*.log /tmp/apt.log || true"_s);
}

void ThrowAwayTest::initTestCase()
{
    const QString reason = ThrowAwaySystem::obstacle();
    if (!reason.isEmpty()) {
        if (qEnvironmentVariableIsSet("REQUIRE_REAL_TOOLS") && ::geteuid() == 0)
            QFAIL(qPrintable(reason));
        QSKIP(qPrintable(reason));
    }
    VELT_NEED_TOOL("curl");
    VELT_NEED_TOOL("lighttpd");
    VELT_NEED_TOOL("python3");
    VELT_NEED_TOOL("reprepro");
    VELT_NEED_TOOL("vsftpd");
    const QString trouble = m_system.boot();
    QVERIFY2(trouble.isEmpty(), qPrintable(trouble));
    prepare();
}

void ThrowAwayTest::cleanup()
{
    if (QTest::currentTestFailed() && m_system.isRunning())
        qInfo("%s", qPrintable(m_system.logs()));
}

void ThrowAwayTest::cleanupTestCase()
{
    QVERIFY(m_system.remove());
}
