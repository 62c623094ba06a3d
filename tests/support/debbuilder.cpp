// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/debbuilder.h"

#include "support/literals.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace
{
QString line(const QString &name, const QString &value)
{
    return value.isEmpty() ? QString() : name + ": "_s + value + QLatin1Char('\n');
}
} // namespace

DebBuilder::DebBuilder(const QString &name)
    : m_name(name)
{ }

DebBuilder &DebBuilder::version(const QString &version)
{
    m_version = version;
    return *this;
}

DebBuilder &DebBuilder::architecture(const QString &architecture)
{
    m_architecture = architecture;
    return *this;
}

DebBuilder &DebBuilder::field(const QString &name, const QString &value)
{
    if (name == "Section"_s)
        m_section = value;
    else if (name == "Priority"_s)
        m_priority = value;
    else if (name == "Description"_s)
        m_description = value;
    else
        m_further += line(name, value);
    return *this;
}

DebBuilder &DebBuilder::contents(const QByteArray &contents)
{
    m_contents = contents;
    return *this;
}

DebBuilder &DebBuilder::udeb()
{
    m_suffix = "udeb"_s;
    return *this;
}

DebBuilder &DebBuilder::fileName(const QString &fileName)
{
    m_fileName = fileName;
    return *this;
}

QString DebBuilder::build(const QString &folder) const
{
    const QTemporaryDir tree;
    QDir(tree.path()).mkdir("DEBIAN"_s);
    QFile::setPermissions(tree.path(), QFileDevice::Permissions(0x7755));
    const QString control
        = line("Package"_s, m_name) + line("Version"_s, m_version) + line("Architecture"_s, m_architecture)
          + line("Maintainer"_s, "Test <test@example.org>"_s) + line("Section"_s, m_section)
          + line("Priority"_s, m_priority) + m_further + line("Description"_s, m_description);
    writeFile(tree.filePath("DEBIAN/control"_s), control.toUtf8());
    writeFile(tree.filePath("usr/share/"_s + m_name + "/data"_s), m_contents);

    QDir().mkpath(folder);
    QString fileVersion = m_version;
    fileVersion = fileVersion.mid(fileVersion.indexOf(QLatin1Char(':')) + 1);
    const QString name = m_fileName.isEmpty()
                             ? "%1_%2_%3.%4"_s.arg(m_name, fileVersion, m_architecture, m_suffix)
                             : m_fileName;
    const QString path = folder + QLatin1Char('/') + name;
    QProcess process;
    process.start("dpkg-deb"_s, {"--root-owner-group"_s, "-Znone"_s, "-b"_s, tree.path(), path});
    process.waitForFinished(-1);
    if (process.exitCode() != 0)
        qFatal("dpkg-deb: %s", process.readAllStandardError().constData());
    return path;
}
