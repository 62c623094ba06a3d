// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/stopsignal.h"
#include "engine/repository/newreporules.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QMap>
#include <QRegularExpression>

namespace
{
QString tr(const char *text)
{
    return QCoreApplication::translate("cli", text);
}

/** "a,b c" as "a b c", which is the form of the description. */
QString listOf(const QString &text)
{
    return QString(text).replace(QLatin1Char(','), QLatin1Char(' ')).simplified();
}

/** Why the description cannot be one; empty when it can. */
QString refusal(const QString &path, const RepoInfo &info)
{
    using NewRepoRules::Refusal;
    switch (NewRepoRules::check(QFileInfo(path).path(), info)) {
    case Refusal::None:
        break;
    case Refusal::MissingField:
        return tr(QT_TRANSLATE_NOOP("cli", "A code name, architectures and components are needed."));
    case Refusal::ArchitectureAll:
        return tr(QT_TRANSLATE_NOOP(
            "cli", "A repository cannot have the architecture all: packages for all go to each of its own."));
    case Refusal::BadPath:
    case Refusal::BadName:
        return tr(QT_TRANSLATE_NOOP("cli", "The path or the code name is not valid."));
    }
    static const QRegularExpression name(QStringLiteral("^[a-z0-9._-]*$"));
    static const QRegularExpression list(QStringLiteral("^[a-z0-9 -]+$"));
    const bool isPlain = name.match(info.codename).hasMatch() && name.match(info.suite).hasMatch()
                         && list.match(info.architectures).hasMatch()
                         && list.match(info.components).hasMatch();
    return isPlain
               ? QString()
               : tr(QT_TRANSLATE_NOOP(
                   "cli", "Names have small letters, digits, hyphens and, for code names and suites, dots."));
}
} // namespace

ExitCode Commands::create(const Invocation &invocation, Console &console)
{
    const QString path = invocation.repository();
    RepoInfo info;
    info.name = QFileInfo(path).fileName();
    info.codename = invocation.value("codename");
    info.architectures = listOf(invocation.value("architectures"));
    info.components = listOf(invocation.value("components"));
    info.suite = invocation.has("suite") ? invocation.value("suite") : QStringLiteral("stable");
    info.version = invocation.value("version");
    info.signWith = invocation.has("sign");
    const QString reason = refusal(path, info);
    if (!reason.isEmpty()) {
        console.error(QStringLiteral("usage"), reason);
        return ExitCode::Usage;
    }
    const QFileInfo present(path);
    const bool isEmpty
        = !present.exists()
          || (present.isDir()
              && QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot));
    if (!isEmpty
        && !console.ask(
            QString(),
            tr(QT_TRANSLATE_NOOP("cli", "%1 is not empty. Is everything in it to be deleted?")).arg(path),
            false,
            &StopSignal::isRaised)) {
        console.error(
            QStringLiteral("exists"), tr(QT_TRANSLATE_NOOP("cli", "No repository was made.")), {}, path);
        return ExitCode::Failed;
    }
    RepositorySession session(invocation, console);
    if (session.run([&] { session.shell().createRepoAside(path, info); }) != RepoEnums::SUCCESS)
        return session.exitCode();
    console.line(tr(QT_TRANSLATE_NOOP("cli", "Made the repository %1.")).arg(path));
    console.object({{QStringLiteral("path"), path}, {QStringLiteral("codename"), info.codename}});
    return ExitCode::Done;
}

ExitCode Commands::show(const Invocation &invocation, Console &console)
{
    const auto reading = RepositoryReading::of(invocation.repository(), console);
    if (!reading)
        return ExitCode::Failed;
    const RepoInfo &info = reading->info;
    QMap<QString, int> counts;
    for (const QString &architecture : info.binaryArchitectures())
        counts.insert(architecture, 0);
    for (const PackageInfoPtr &package : reading->packages)
        ++counts[package->architecture];
    const auto field = [&](const char *name, const QString &value) { console.line(tr(name).arg(value)); };
    field(QT_TRANSLATE_NOOP("cli", "Path: %1"), reading->path);
    field(QT_TRANSLATE_NOOP("cli", "Code name: %1"), info.codename);
    field(QT_TRANSLATE_NOOP("cli", "Suite: %1"), info.suite);
    field(QT_TRANSLATE_NOOP("cli", "Version: %1"), info.version);
    field(QT_TRANSLATE_NOOP("cli", "Architectures: %1"), info.architectures);
    field(QT_TRANSLATE_NOOP("cli", "Components: %1"), info.components);
    console.line(info.signWith ? tr(QT_TRANSLATE_NOOP("cli", "Signed with the default key"))
                               : tr(QT_TRANSLATE_NOOP("cli", "Not signed with the default key")));
    QJsonObject packages;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        console.line(tr(QT_TRANSLATE_NOOP("cli", "Packages for %1: %2")).arg(it.key()).arg(it.value()));
        packages.insert(it.key(), it.value());
    }
    console.object({{QStringLiteral("path"), reading->path},
                    {QStringLiteral("codename"), info.codename},
                    {QStringLiteral("suite"), info.suite},
                    {QStringLiteral("version"), info.version},
                    {QStringLiteral("architectures"), QJsonArray::fromStringList(info.architectureList())},
                    {QStringLiteral("components"), QJsonArray::fromStringList(info.componentList())},
                    {QStringLiteral("signed"), info.signWith},
                    {QStringLiteral("packages"), packages}});
    return ExitCode::Done;
}
