// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/debbuilder.h"

#include "support/literals.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

DebBuilder::DebBuilder(const QString &name)
    : m_fields{{"Package"_s, name},
               {"Version"_s, "1.0"_s},
               {"Architecture"_s, "amd64"_s},
               {"Maintainer"_s, "Test <test@example.org>"_s},
               {"Section"_s, "admin"_s},
               {"Priority"_s, "optional"_s},
               {"Description"_s, "test package"_s}}
{ }

DebBuilder &DebBuilder::field(const QString &name, const QString &value)
{
    m_fields[name] = value;
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
    QString control;
    for (auto field = m_fields.cbegin(); field != m_fields.cend(); ++field)
        if (!field.value().isEmpty())
            control += "%1: %2\n"_s.arg(field.key(), field.value());
    const QString name = m_fields["Package"_s];
    writeFile(tree.filePath("DEBIAN/control"_s), control.toUtf8());
    writeFile(tree.filePath("usr/share/%1/data"_s.arg(name)), m_contents);

    QDir().mkpath(folder);
    const QString version = m_fields["Version"_s];
    const QString fileVersion = version.mid(version.indexOf(u':') + 1);
    QString path = folder + u'/'
                   + (m_fileName.isEmpty()
                          ? "%1_%2_%3.%4"_s.arg(name, fileVersion, m_fields["Architecture"_s], m_suffix)
                          : m_fileName);
    QProcess process;
    process.start("dpkg-deb"_s, {"--root-owner-group"_s, "-Znone"_s, "-b"_s, tree.path(), path});
    process.waitForFinished(-1);
    if (process.exitCode() != 0)
        qFatal("dpkg-deb: %s", process.readAllStandardError().constData());
    return path;
}
