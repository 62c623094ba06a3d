// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/repreprocommands.h"

#include "core/packagenames.h"

#include <algorithm>

namespace
{
/** QProcess reads three double quotes as one literal double quote. */
QString escaped(const QString &text)
{
    return QString(text).replace(QLatin1Char('"'), QLatin1String("\"\"\""));
}

/** What ReproListing::packages() reads. */
const QString PackageFormat
    = QStringLiteral("--list-format \"${$component} ${$architecture} ${package} ${filename}\n\"");

QString named(const QString &name)
{
    return QStringLiteral("Package (% %1)").arg(name);
}

QString filtered(const QString &codename, const QString &filter)
{
    return QLatin1String(" listfilter ") + ReproCommand::quoted(codename) + QLatin1String(" \"")
           + escaped(filter) + QLatin1Char('"');
}
/** Each of them after a blank. */
QString words(const QStringList &files)
{
    QString text;
    for (const QString &file : files)
        text += QLatin1Char(' ') + ReproCommand::quoted(file);
    return text;
}

QString inDatabase(const QString &folder, const QString &arguments)
{
    // The database can be older than the description of the repository.
    return QStringLiteral("--ignore=undefinedtarget --dbdir %1 %2")
        .arg(ReproCommand::quoted(folder), arguments);
}
} // namespace

QString ReproCommand::quoted(const QString &word)
{
    const bool plain = std::none_of(
        word.cbegin(), word.cend(), [](QChar c) { return c.isSpace() || c == QLatin1Char('"'); });
    if (plain && !word.isEmpty())
        return word;
    return QLatin1Char('"') + escaped(word) + QLatin1Char('"');
}

QString ReproCommand::commandLine(const QString &path, const QString &arguments)
{
    return QStringLiteral("reprepro -b %1 %2").arg(quoted(path), arguments);
}

QString ReproCommand::exportIndices()
{
    return QStringLiteral(" export");
}

QString ReproCommand::clearVanished(bool packages)
{
    return packages ? QStringLiteral(" --delete clearvanished") : QStringLiteral(" clearvanished");
}

QString ReproCommand::copyAll(const QString &from, const QString &to)
{
    return QStringLiteral(" copymatched %1 %2 *").arg(quoted(to), quoted(from));
}

QString ReproCommand::flood(const QString &codename, const QString &architecture)
{
    return QStringLiteral(" flood %1 %2").arg(quoted(codename), quoted(architecture));
}

QString ReproCommand::removeAllTracks(const QString &codename)
{
    return QStringLiteral(" --delete removealltracks ") + quoted(codename);
}

QString ReproCommand::deleteUnreferenced()
{
    return QStringLiteral(" deleteunreferenced");
}

QString ReproCommand::dumpUnreferenced()
{
    return QStringLiteral(" dumpunreferenced");
}

QString ReproCommand::forget(const QStringList &poolFiles)
{
    return QStringLiteral(" _forget") + words(poolFiles);
}

QString ReproCommand::dumpReferences()
{
    return QStringLiteral(" dumpreferences");
}

QString ReproCommand::dumpReferencesIn(const QString &databaseFolder)
{
    return inDatabase(databaseFolder, dumpReferences());
}

QString ReproCommand::update(const QString &codename, const QString &listsFolder)
{
    return QStringLiteral("--verbosedb --listdir %1 update %2").arg(quoted(listsFolder), quoted(codename));
}

QString ReproCommand::rereference()
{
    return QStringLiteral(" rereference");
}

QString ReproCommand::detect(const QStringList &poolFiles)
{
    return QStringLiteral(" _detect") + words(poolFiles);
}

QString ReproCommand::listChecksums()
{
    return QStringLiteral(" _listchecksums");
}

QString ReproCommand::listChecksumsIn(const QString &databaseFolder)
{
    return inDatabase(databaseFolder, listChecksums());
}

QString ReproCommand::remove(const QString &codename,
                             const QStringList &names,
                             const QString &component,
                             const QString &architecture,
                             const PackageType *type)
{
    QString arguments;
    if (type != nullptr)
        arguments += QStringLiteral("-T %1 ").arg(PackageNames::suffix(*type));
    if (!component.isEmpty())
        arguments += QStringLiteral("-C %1 ").arg(quoted(component));
    if (!architecture.isEmpty() && architecture != QLatin1String("all"))
        arguments += QStringLiteral("-A %1 ").arg(quoted(architecture));
    arguments += QStringLiteral("remove %1").arg(quoted(codename));
    for (const QString &name : names)
        arguments += QLatin1Char(' ') + quoted(name);
    return arguments;
}

QString ReproCommand::include(const QString &codename, const PackageInfo &record, const QStringList &files)
{
    // The Section field can name another component than that of the index.
    QString section = record.section;
    if (record.component != record.indexComponent)
        section.prepend(record.component + QLatin1Char('/'));
    QString arguments = QStringLiteral("-C %1 ").arg(quoted(record.indexComponent));
    if (!record.architecture.isEmpty())
        arguments += QStringLiteral("-A %1 ").arg(quoted(record.architecture));
    // A section on the command line applies to all files of the run, so the files' own sections are left to them.
    if (section != record.control.field("Section"))
        arguments += QStringLiteral("-S %1 ").arg(quoted(section));
    arguments += QStringLiteral("include%1 %2")
                     .arg(PackageNames::suffix(PackageNames::typeOfFile(files.first())), quoted(codename));
    for (const QString &file : files)
        arguments += QLatin1String(" \"") + escaped(file) + QLatin1Char('"');
    return arguments;
}

QString ReproCommand::keepingUnreferenced()
{
    return QStringLiteral("--keepunreferencedfiles ");
}

QString ReproCommand::defaultPriority()
{
    // Verbose, so that the log shows the priority. The option -P takes the next word, whatever it is.
    return QStringLiteral("-V -P optional ");
}

QString ReproCommand::listFiles(const QString &codename,
                                const QString &name,
                                const QString &component,
                                const QString &architecture)
{
    QString filter = named(name);
    if (!component.isEmpty())
        filter += QStringLiteral(", $Component (% %1)").arg(component);
    if (!architecture.isEmpty())
        filter += QStringLiteral(", $Architecture (% %1)").arg(architecture);
    return QLatin1String("--list-format \"${filename}\n\"") + filtered(codename, filter);
}

QString
ReproCommand::listPackages(const QString &codename, const QStringList &names, const QString &component)
{
    QStringList choices;
    for (const QString &name : names)
        choices.append(named(name));
    const QString filter
        = QStringLiteral("(%1), $Component (% %2)").arg(choices.join(QLatin1String(" | ")), component);
    return PackageFormat + filtered(codename, filter);
}

QString ReproCommand::listAllFiles(const QString &codename)
{
    return PackageFormat + QLatin1String(" list ") + quoted(codename);
}

QString ReproCommand::listAllFilesIn(const QString &databaseFolder, const QString &codename)
{
    return inDatabase(databaseFolder, listAllFiles(codename));
}
