// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Names of the fields of reprepro's conf/distributions, see reprepro(1). */
namespace DistributionField
{
inline const QString Origin = QStringLiteral("Origin");
inline const QString Label = QStringLiteral("Label");
inline const QString Codename = QStringLiteral("Codename");
inline const QString Suite = QStringLiteral("Suite");
inline const QString Version = QStringLiteral("Version");
inline const QString Architectures = QStringLiteral("Architectures");
inline const QString Components = QStringLiteral("Components");
inline const QString SignWith = QStringLiteral("SignWith");
inline const QString Contents = QStringLiteral("Contents");
inline const QString Description = QStringLiteral("Description");
inline const QString ValidFor = QStringLiteral("ValidFor");
} // namespace DistributionField

inline const QString DefaultOrigin = QStringLiteral("Debian");
inline const QString DefaultArchitecture = QStringLiteral("amd64");
inline const QString DefaultCodename = QStringLiteral("dogwood");
inline const QString DefaultComponent = QStringLiteral("main");
inline const QString DefaultSection = QStringLiteral("misc");

/** The description of one repository: the content of its conf/distributions, and its display name. */
struct RepoInfo
{
    QString name; ///< display name; the name of the directory after reading from disk
    QString codename; ///< also the distribution argument of every reprepro command
    QString suite;
    QString version;
    QString architectures; ///< separated by blanks, as in the file
    QString components; ///< separated by blanks
    bool signWith = false; ///< Release files are signed, with signKey
    bool contents = false; ///< Contents indices are generated, as contentsChoices tells
    QString origin = DefaultOrigin; ///< who makes the packages; clients can select by it; never empty
    QString label = {}; ///< clients can select by it; empty: none
    QString description = {}; ///< one line; empty: none
    QString signKey = {}; ///< fingerprint or key id; empty: the user's default key
    QString contentsChoices = {}; ///< words of reprepro, separated by blanks; empty: compressed with gzip
    int validFor = 0; ///< days until clients refuse indices that are not written anew; 0: they never do
    QStringList otherLines = {}; ///< what the members cannot hold: fields, their further lines, and comments

    QStringList architectureList() const { return architectures.split(QLatin1Char(' '), Qt::SkipEmptyParts); }
    /** The architectures of binary packages: without "source" and "all", and without the text after a comment sign. */
    QStringList binaryArchitectures() const;
    QStringList componentList() const { return components.split(QLatin1Char(' '), Qt::SkipEmptyParts); }

    bool operator==(const RepoInfo &other) const;
    bool operator!=(const RepoInfo &other) const { return !(*this == other); }
};
