// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/aptsimulation.h"

#include "core/processutils.h"
#include "support/literals.h"
#include "support/testenvironment.h"

AptSimulation::AptSimulation(const QByteArray &index, const InstallSystem &system)
    : m_native(system.native)
{
    // Without these fields apt does not take a package as one that can be fetched.
    QByteArray fetchable = index;
    int count = 0;
    for (int end = fetchable.indexOf("\n\n"); end >= 0; end = fetchable.indexOf("\n\n", end + 2)) {
        const QByteArray number = QByteArray::number(++count);
        const QByteArray fields
            = "\nFilename: " + number + ".deb\nSize: 1\nSHA256: " + number.rightJustified(64, '0');
        fetchable.insert(end, fields);
        end += fields.size();
    }
    writeFile(m_folder.filePath("index/Packages"_s), fetchable);
    runShell(QStringLiteral(R"(
mkdir -p etc/apt.conf.d etc/preferences.d etc/trusted.gpg.d lists/partial cache/archives/partial
touch status
echo "deb [trusted=yes] file:$PWD/index ./" >etc/sources.list
cat >apt.conf <<END
Dir::Etc "$PWD/etc"; Dir::Etc::Parts "$PWD/etc/apt.conf.d"; Dir::State "$PWD"; Dir::State::lists "$PWD/lists";
Dir::State::status "$PWD/status"; Dir::Cache "$PWD/cache"; Dir::Log "$PWD/log"; Debug::NoLocking "true";
APT::Sandbox::User ""; APT::Architecture "%1"; APT::Architectures { "%2"; }; APT::Install-Recommends "false";
Acquire::Languages "none";
END
APT_CONFIG=$PWD/apt.conf apt-get -qq update)")
                 .arg(system.native, (QStringList{system.native} + system.foreign).join("\"; \""_s)),
             m_folder.path());
}

bool AptSimulation::installs(const QStringList &packages) const
{
    QStringList arguments{"install"_s, "-s"_s, "-q"_s};
    for (const QString &package : packages) {
        const QStringList parts = package.split(u' ');
        const QString architecture = parts.at(2) == "all"_s ? m_native : parts.at(2);
        arguments.append(parts.at(0) + u':' + architecture + u'=' + parts.at(1));
    }
    return runProcess({"apt-get"_s, arguments, {}, {"APT_CONFIG="_s + m_folder.filePath("apt.conf"_s)}, -1})
        .succeeded();
}
