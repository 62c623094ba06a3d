// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

/** Builds real packages: DebBuilder("foo").version("1.0").field("Depends", "bar").build(folder). */
class DebBuilder
{
public:
    explicit DebBuilder(const QString &name);

    DebBuilder &version(const QString &version) { return field(QStringLiteral("Version"), version); }
    DebBuilder &architecture(const QString &name) { return field(QStringLiteral("Architecture"), name); }
    /** Sets a control field; an empty value leaves the field out. */
    DebBuilder &field(const QString &name, const QString &value);
    /** Contents of the package's only data file. Other contents make another package of the same version. */
    DebBuilder &contents(const QByteArray &contents);
    DebBuilder &udeb();
    /** A file name other than NAME_VERSION_ARCH.deb. */
    DebBuilder &fileName(const QString &fileName);

    /** Writes the package to `folder`, which is created when missing, and returns its path. */
    QString build(const QString &folder) const;

private:
    QMap<QString, QString> m_fields;
    QString m_suffix = QStringLiteral("deb");
    QString m_fileName;
    QByteArray m_contents = "contents\n";
};
