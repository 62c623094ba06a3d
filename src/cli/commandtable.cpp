// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commandtable.h"

#include "cli/commands.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{
constexpr int Any = -1;
constexpr const char *Component = QT_TRANSLATE_NOOP("cli", "Only packages of this component");
constexpr const char *Architecture = QT_TRANSLATE_NOOP("cli", "Only packages of this architecture");

const CommandOption OnCollision{
    "on-collision",
    "WHICH",
    QT_TRANSLATE_NOOP("cli",
                      "What becomes of a package that is there already: fail (the default) refuses the file, "
                      "newer and older replace by version, all replaces, none keeps"),
    "fail|newer|older|all|none"};
const CommandOption Into{
    "component", "NAME", QT_TRANSLATE_NOOP("cli", "The component for all packages, instead of their own")};
const CommandOption Extend{
    "extend",
    nullptr,
    QT_TRANSLATE_NOOP("cli", "Give the repository the architectures and components that it lacks for them")};
const CommandOption SignPackages{
    "sign-packages", "KEY", QT_TRANSLATE_NOOP("cli", "Sign a copy of each file with this key, and add that")};
const CommandOption WithDepends{
    "with-depends", nullptr, QT_TRANSLATE_NOOP("cli", "Also the packages on which they depend")};
const CommandOption Missing{"missing",
                            nullptr,
                            QT_TRANSLATE_NOOP("cli",
                                              "All that the packages of the repository lack, or those that "
                                              "are named, with what that needs in turn")};
const CommandOption Against{
    "against",
    "WHERE",
    QT_TRANSLATE_NOOP(
        "cli",
        "Where dependencies are looked for: local (the default) is the repository itself, public "
        "are apt's sources"),
    "local|public|both"};
const CommandOption Complete{
    "complete",
    nullptr,
    QT_TRANSLATE_NOOP("cli",
                      "Check whether the packages can really be installed, with all that they need, and say "
                      "why the others cannot")};
const CommandOption Base{
    "base",
    "WHAT",
    QT_TRANSLATE_NOOP(
        "cli",
        "With --complete, what else there is: public (the default) are apt's sources, essential "
        "is what every system has, nothing is the repository alone; or another REPOSITORY")};
const CommandOption ForeignArchitecture{
    "foreign-architecture",
    "NAME",
    QT_TRANSLATE_NOOP("cli",
                      "With --complete, a further architecture of the system, as dpkg knows foreign "
                      "architectures; can be repeated")};
const CommandOption From{
    "from",
    "SOURCE",
    QT_TRANSLATE_NOOP(
        "cli",
        "Look in this source, written as after deb in a sources list; can be repeated; without it, "
        "in all that apt and the settings have")};
const CommandOption ListOnly{"list", nullptr, QT_TRANSLATE_NOOP("cli", "Only list the newer versions")};
const CommandOption Packages{
    "packages",
    "GLOB",
    QT_TRANSLATE_NOOP("cli", "Only these packages, separated by commas; can be repeated")};
const CommandOption Key{
    "key", "KEY", QT_TRANSLATE_NOOP("cli", "The key to sign with, instead of that in the settings")};
const CommandOption WithoutPackages{
    "without-packages",
    nullptr,
    QT_TRANSLATE_NOOP("cli", "Delete the packages under a new code name, instead of carrying them over")};
const CommandOption DeleteContents{
    "delete-contents",
    nullptr,
    QT_TRANSLATE_NOOP("cli", "Delete what is in the folder; --yes does not do that")};
const CommandOption DryRun{
    "dry-run",
    nullptr,
    QT_TRANSLATE_NOOP("cli", "Only show what would change, and what could not be installed then")};
const QVector<CommandOption> Description{
    {"codename", "NAME", QT_TRANSLATE_NOOP("cli", "The code name of the distribution")},
    {"architectures", "LIST", QT_TRANSLATE_NOOP("cli", "Architectures, separated by commas")},
    {"components", "LIST", QT_TRANSLATE_NOOP("cli", "Components, separated by commas")},
    {"suite", "NAME", QT_TRANSLATE_NOOP("cli", "The suite, such as stable")},
    {"version", "TEXT", QT_TRANSLATE_NOOP("cli", "The version of the distribution")},
    {"origin", "TEXT", QT_TRANSLATE_NOOP("cli", "Who makes the packages")},
    {"label", "TEXT", QT_TRANSLATE_NOOP("cli", "What clients can select the repository by")},
    {"description", "TEXT", QT_TRANSLATE_NOOP("cli", "What is in the repository, in one line")},
    {"sign", nullptr, QT_TRANSLATE_NOOP("cli", "Sign the repository with the default key")},
    {"sign-key",
     "KEY",
     QT_TRANSLATE_NOOP("cli", "Sign the repository with this key: its fingerprint, or the end of it")},
    {"contents",
     "LIST",
     QT_TRANSLATE_NOOP(
         "cli",
         "Write lists of the packages' files: yes, or words of reprepro separated by commas, such as "
         ".xz,udebs")},
    {"valid-for",
     "DAYS",
     QT_TRANSLATE_NOOP("cli", "Clients refuse indices that have not been written for so many days")}};
} // namespace

QString CommandDescription::synopsis() const
{
    QString text = QLatin1String(name);
    if (*operands != '\0')
        text += QLatin1Char(' ') + QLatin1String(operands);
    for (const CommandOption &option : options) {
        const QString value
            = option.value == nullptr ? QString() : QLatin1Char(' ') + QLatin1String(option.value);
        text += QStringLiteral(" [--%1%2]").arg(QLatin1String(option.name), value);
    }
    return text;
}

const QVector<CommandDescription> &CommandTable::commands()
{
    static const QVector<CommandDescription> all{
        {"create",
         Commands::create,
         "PATH",
         1,
         1,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "Make a repository in a new or empty folder"),
         Description + QVector<CommandOption>{DeleteContents}},
        {"show",
         Commands::show,
         "REPO",
         1,
         1,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "Show the description of a repository, and how much it holds"),
         {}},
        {"list",
         Commands::list,
         "REPO [GLOB...]",
         1,
         Any,
         Operand::Repository,
         Operand::PackageName,
         QT_TRANSLATE_NOOP("cli", "List the packages, or those whose names match one of the patterns"),
         {{"arch", "NAME", Architecture}, {"component", "NAME", Component}}},
        {"add",
         Commands::add,
         "REPO FILE|FOLDER...",
         2,
         Any,
         Operand::Repository,
         Operand::File,
         QT_TRANSLATE_NOOP(
             "cli", "Add package files, and those below folders; - reads their names from standard input"),
         {Into, Extend, OnCollision, SignPackages, DryRun}},
        {"remove",
         Commands::remove,
         "REPO NAME[=VERSION]...",
         2,
         Any,
         Operand::Repository,
         Operand::PackageName,
         QT_TRANSLATE_NOOP("cli", "Remove packages"),
         {{"arch", "NAME", Architecture}, {"component", "NAME", Component}, DryRun}},
        {"copy",
         Commands::copy,
         "FROM TO NAME[=VERSION]...",
         3,
         Any,
         Operand::Repository,
         Operand::RepositoryAndNames,
         QT_TRANSLATE_NOOP(
             "cli", "Copy packages from a repository to another one, or to another component of the same"),
         {{"component", "NAME", QT_TRANSLATE_NOOP("cli", "The component into which the packages go")},
          WithDepends,
          {"move",
           nullptr,
           QT_TRANSLATE_NOOP("cli", "Remove the packages where they were, once they are there")},
          {"arch", "NAME", Architecture},
          Extend,
          OnCollision,
          DryRun}},
        {"fetch",
         Commands::fetch,
         "REPO [NAME[=VERSION]...]",
         1,
         Any,
         Operand::Repository,
         Operand::PackageName,
         QT_TRANSLATE_NOOP("cli", "Fetch packages from apt's sources, and add them"),
         {WithDepends, Missing, Into, Extend, OnCollision, SignPackages, DryRun}},
        {"check",
         Commands::check,
         "REPO [GLOB...]",
         1,
         Any,
         Operand::Repository,
         Operand::PackageName,
         QT_TRANSLATE_NOOP("cli", "Check whether the dependencies of the packages can be met"),
         {Against,
          Complete,
          Base,
          ForeignArchitecture,
          {"arch", "NAME", Architecture},
          {"component", "NAME", Component}}},
        {"upgrade",
         Commands::upgrade,
         "REPO",
         1,
         1,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "Replace packages with newer versions from apt's sources"),
         {From, ListOnly, SignPackages, DryRun}},
        {"export",
         Commands::exportPackages,
         "REPO FILE",
         2,
         2,
         Operand::Repository,
         Operand::File,
         QT_TRANSLATE_NOOP("cli", "Write the repository, or some of its packages, to a .tgz archive"),
         {Packages, WithDepends}},
        {"import",
         Commands::import,
         "REPO FILE|FOLDER",
         2,
         2,
         Operand::Repository,
         Operand::File,
         QT_TRANSLATE_NOOP("cli", "Add the packages in an archive, or those below a folder"),
         {Into, Extend, OnCollision, SignPackages, DryRun}},
        {"sign",
         Commands::sign,
         "REPO NAME[=VERSION]...",
         2,
         Any,
         Operand::Repository,
         Operand::PackageName,
         QT_TRANSLATE_NOOP("cli", "Sign packages"),
         {Key, {"arch", "NAME", Architecture}, {"component", "NAME", Component}}},
        {"keys",
         Commands::keys,
         "",
         0,
         0,
         Operand::None,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "List the keys that can sign, and those that no longer can"),
         {}},
        {"change",
         Commands::change,
         "REPO FIELD=VALUE...",
         2,
         Any,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP("cli",
                           "Change the description of a repository: codename, suite, version, architectures, "
                           "components, origin, label, description, sign=yes|no, sign-key=KEY|default, "
                           "contents=yes|no|LIST, valid-for=DAYS, or path, which moves it"),
         {WithoutPackages, DryRun}},
        {"history",
         Commands::history,
         "REPO [NAME]",
         1,
         2,
         Operand::Repository,
         Operand::PackageName,
         QT_TRANSLATE_NOOP("cli",
                           "List the restore points of a repository, or those that have changed a package, "
                           "with their changes"),
         {{"limit", "NUMBER", QT_TRANSLATE_NOOP("cli", "Only so many of the newest")},
          {"prune",
           nullptr,
           QT_TRANSLATE_NOOP("cli",
                             "First delete the oldest restore points that are more than the settings "
                             "allow")}}},
        {"diff",
         Commands::diff,
         "REPO POINT [POINT]",
         2,
         3,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP("cli",
                           "Show what has changed from the state before a restore point until now, or until "
                           "the state before another one"),
         {}},
        {"undo",
         Commands::undo,
         "REPO",
         1,
         1,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP(
             "cli",
             "Go back to the state before the newest restore point, so that a second time undoes "
             "the first; restore goes further back"),
         {DryRun}},
        {"restore",
         Commands::restore,
         "REPO POINT",
         2,
         2,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "Go back to the state before a restore point, or bring back a package"),
         {{"package",
           "NAME",
           QT_TRANSLATE_NOOP("cli", "Only bring back this package, as it was before the restore point")},
          DryRun}},
        {"publish",
         Commands::publish,
         "REPO",
         1,
         1,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP(
             "cli",
             "Publish a repository to other machines, over HTTP on the port 8000 if nothing else is said"),
         {{"http", "PORT", QT_TRANSLATE_NOOP("cli", "Over HTTP on this port")},
          {"ftp", "PORT", QT_TRANSLATE_NOOP("cli", "Over FTP on this port")}}},
        {"unpublish",
         Commands::unpublish,
         "REPO|PORT",
         1,
         1,
         Operand::Port,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "End the publications of a repository, or those on a port"),
         {}},
        {"published",
         Commands::published,
         "",
         0,
         0,
         Operand::None,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "List what this machine publishes"),
         {}},
        {"source-line",
         Commands::sourceLine,
         "REPO",
         1,
         1,
         Operand::Repository,
         Operand::None,
         QT_TRANSLATE_NOOP("cli", "Print the line with which other machines use a published repository"),
         {{"host", "NAME", QT_TRANSLATE_NOOP("cli", "The name or address of this machine for them")},
          {"port", "PORT", QT_TRANSLATE_NOOP("cli", "The publication on this port")},
          {"trusted", nullptr, QT_TRANSLATE_NOOP("cli", "Accept the repository without a valid signature")}}},
    };
    return all;
}

const QVector<CommandOption> &CommandTable::commonOptions()
{
    static const QVector<CommandOption> all{
        {"json",
         nullptr,
         QT_TRANSLATE_NOOP("cli", "Print the result as JSON, and errors as JSON on standard error")},
        {"yes",
         nullptr,
         QT_TRANSLATE_NOOP(
             "cli",
             "Answer questions with yes, but not to delete a folder, give up a package or trust programs")},
        {"trust-settings",
         nullptr,
         QT_TRANSLATE_NOOP("cli", "Trust programs that the settings of the repository name")},
        {"quiet", nullptr, QT_TRANSLATE_NOOP("cli", "Print nothing but results and errors")},
        {"wait",
         "SECONDS",
         QT_TRANSLATE_NOOP("cli", "Wait so long for another job that works on the repository")},
    };
    return all;
}

const CommandDescription *CommandTable::find(const QString &name)
{
    const auto found
        = std::find_if(commands().cbegin(), commands().cend(), [&name](const CommandDescription &command) {
              return name == QLatin1String(command.name);
          });
    return found == commands().cend() ? nullptr : &*found;
}

QString CommandTable::translated(const char *text)
{
    return QCoreApplication::translate("cli", text);
}
