// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Builds real packages: DebBuilder("foo").version("1.0").field("Depends", "bar").build(folder). */
class DebBuilder
{
public:
    explicit DebBuilder(const QString &name);

    DebBuilder &version(const QString &version);
    DebBuilder &architecture(const QString &architecture);
    /** Sets a control field; an empty value leaves the field out. */
    DebBuilder &field(const QString &name, const QString &value);
    /** Contents of the package's one data file; other contents make another package of the same version. */
    DebBuilder &contents(const QByteArray &contents);
    DebBuilder &udeb();
    /** Another file name than NAME_VERSION_ARCH.deb. */
    DebBuilder &fileName(const QString &fileName);

    /** Writes the package into `folder` (made when missing) and returns its path. */
    QString build(const QString &folder) const;

private:
    QString m_name;
    QString m_version = QStringLiteral("1.0");
    QString m_architecture = QStringLiteral("amd64");
    QString m_suffix = QStringLiteral("deb");
    QString m_fileName;
    QByteArray m_contents = "contents\n";
    QString m_section = QStringLiteral("admin");
    QString m_priority = QStringLiteral("optional");
    QString m_description = QStringLiteral("test package");
    QString m_further;
};
