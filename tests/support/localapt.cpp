// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/localapt.h"

#include "support/literals.h"

#include <QProcess>

namespace
{
const QString SetUp = QStringLiteral(R"(cd "$0"
mkdir -p etc/apt.conf.d etc/preferences.d etc/trusted.gpg.d lists/partial cache/archives/partial
touch status
for source; do
    mkdir -p $source/dists/dogwood/main/binary-amd64
    [ ! -d $source/pool ] || (cd $source; dpkg-scanpackages -m pool >dists/dogwood/main/binary-amd64/Packages)
    echo "deb [trusted=yes arch=amd64] file:$0/$source dogwood main" >>etc/sources.list
done
cat >apt.conf <<END
Dir::Etc "$0/etc"; Dir::Etc::Parts "$0/etc/apt.conf.d"; Dir::State "$0"; Dir::State::lists "$0/lists";
Dir::State::status "$0/status"; Dir::Cache "$0/cache"; Dir::Log "$0/log";
APT::Sandbox::User ""; APT::Architecture "amd64";
END
apt-get -qq update)");
} // namespace

LocalApt::LocalApt(const QString &root, const QStringList &sources)
    : m_config("APT_CONFIG", root + "/apt.conf"_s)
{
    if (QProcess::execute("sh"_s, QStringList{"-ec"_s, SetUp, root} + sources) != 0)
        qFatal("apt could not be set up");
}
