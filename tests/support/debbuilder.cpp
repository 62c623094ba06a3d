// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/debbuilder.h"

#include "support/testenvironment.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace
{
QString line(const QString &name, const QString &value)
{
    return value.isEmpty() ? QString() : name + QLatin1String(": ") + value + QLatin1Char('\n');
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
    if (name == QLatin1String("Section"))
        m_section = value;
    else if (name == QLatin1String("Priority"))
        m_priority = value;
    else if (name == QLatin1String("Description"))
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
    m_suffix = QStringLiteral("udeb");
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
    QDir(tree.path()).mkdir(QStringLiteral("DEBIAN"));
    QFile::setPermissions(tree.path(), QFileDevice::Permissions(0x7755));
    const QString control
        = line(QStringLiteral("Package"), m_name) + line(QStringLiteral("Version"), m_version)
          + line(QStringLiteral("Architecture"), m_architecture)
          + line(QStringLiteral("Maintainer"), QStringLiteral("Test <test@example.org>"))
          + line(QStringLiteral("Section"), m_section) + line(QStringLiteral("Priority"), m_priority)
          + m_further + line(QStringLiteral("Description"), m_description);
    writeFile(tree.filePath(QStringLiteral("DEBIAN/control")), control.toUtf8());
    writeFile(tree.filePath(QStringLiteral("usr/share/") + m_name + QLatin1String("/data")), m_contents);

    QDir().mkpath(folder);
    QString fileVersion = m_version;
    fileVersion = fileVersion.mid(fileVersion.indexOf(QLatin1Char(':')) + 1);
    const QString name
        = m_fileName.isEmpty()
              ? QStringLiteral("%1_%2_%3.%4").arg(m_name, fileVersion, m_architecture, m_suffix)
              : m_fileName;
    const QString path = folder + QLatin1Char('/') + name;
    QProcess process;
    process.start(QStringLiteral("dpkg-deb"),
                  {QStringLiteral("--root-owner-group"),
                   QStringLiteral("-Znone"),
                   QStringLiteral("-b"),
                   tree.path(),
                   path});
    process.waitForFinished(-1);
    if (process.exitCode() != 0)
        qFatal("dpkg-deb: %s", process.readAllStandardError().constData());
    return path;
}
