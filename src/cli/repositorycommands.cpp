// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/descriptionrules.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/stopsignal.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QMap>

ExitCode Commands::create(const Invocation &invocation, Console &console)
{
    const QString path = invocation.repository();
    RepoInfo info;
    info.name = QFileInfo(path).fileName();
    info.suite = QStringLiteral("stable");
    info.signWith = invocation.has("sign");
    QString reason;
    for (const QString &field : DescriptionRules::fields()) {
        // Signing is a switch here.
        const QByteArray option = field.toLatin1();
        if (!reason.isEmpty() || field == QLatin1String("sign") || !invocation.has(option.constData()))
            continue;
        const QString value = invocation.value(option.constData());
        reason = DescriptionRules::refusal(field, value);
        DescriptionRules::set(&info, field, value);
    }
    if (reason.isEmpty())
        reason = DescriptionRules::refusal(path, info);
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
            {QString(),
             QCoreApplication::translate("cli", "%1 is not empty. Is everything in it to be deleted?")
                 .arg(path),
             false,
             "delete-contents"},
            &StopSignal::isRaised)) {
        console.error(QStringLiteral("exists"),
                      QCoreApplication::translate("cli", "No repository was made."),
                      {},
                      path);
        return ExitCode::Failed;
    }
    RepositorySession session(invocation, console);
    if (session.run([&] { session.shell().createRepoAside(path, info); }) != RepoEnums::SUCCESS)
        return session.exitCode();
    console.line(QCoreApplication::translate("cli", "Made the repository %1.").arg(path));
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
    const auto field = [&](const char *name, const QString &value) {
        console.line(CommandTable::translated(name).arg(value));
    };
    field(QT_TRANSLATE_NOOP("cli", "Path: %1"), reading->path);
    field(QT_TRANSLATE_NOOP("cli", "Code name: %1"), info.codename);
    field(QT_TRANSLATE_NOOP("cli", "Suite: %1"), info.suite);
    field(QT_TRANSLATE_NOOP("cli", "Version: %1"), info.version);
    field(QT_TRANSLATE_NOOP("cli", "Origin: %1"), info.origin);
    field(QT_TRANSLATE_NOOP("cli", "Label: %1"), info.label);
    field(QT_TRANSLATE_NOOP("cli", "Architectures: %1"), info.architectures);
    field(QT_TRANSLATE_NOOP("cli", "Components: %1"), info.components);
    field(QT_TRANSLATE_NOOP("cli", "Description: %1"), info.description);
    const QString contents = !info.contents                   ? QString()
                             : info.contentsChoices.isEmpty() ? QStringLiteral(".gz")
                                                              : info.contentsChoices;
    if (info.contents)
        field(QT_TRANSLATE_NOOP("cli", "Contents: %1"), contents);
    if (info.validFor > 0)
        field(QT_TRANSLATE_NOOP("cli", "Valid for days: %1"), QString::number(info.validFor));
    if (info.signWith && !info.signKey.isEmpty())
        field(QT_TRANSLATE_NOOP("cli", "Signed with the key %1"), info.signKey);
    else
        console.line(info.signWith ? QCoreApplication::translate("cli", "Signed with the default key")
                                   : QCoreApplication::translate("cli", "Not signed with the default key"));
    for (const QString &line : info.otherLines)
        field(QT_TRANSLATE_NOOP("cli", "Other field: %1"), line);
    QJsonObject packages;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        console.line(QCoreApplication::translate("cli", "Packages for %1: %2").arg(it.key()).arg(it.value()));
        packages.insert(it.key(), it.value());
    }
    console.object({{QStringLiteral("path"), reading->path},
                    {QStringLiteral("codename"), info.codename},
                    {QStringLiteral("suite"), info.suite},
                    {QStringLiteral("version"), info.version},
                    {QStringLiteral("origin"), info.origin},
                    {QStringLiteral("label"), info.label},
                    {QStringLiteral("architectures"), QJsonArray::fromStringList(info.architectureList())},
                    {QStringLiteral("components"), QJsonArray::fromStringList(info.componentList())},
                    {QStringLiteral("description"), info.description},
                    {QStringLiteral("signed"), info.signWith},
                    {QStringLiteral("signKey"), info.signKey},
                    {QStringLiteral("contents"),
                     QJsonArray::fromStringList(contents.split(QLatin1Char(' '), Qt::SkipEmptyParts))},
                    {QStringLiteral("validFor"), info.validFor},
                    {QStringLiteral("otherLines"), QJsonArray::fromStringList(info.otherLines)},
                    {QStringLiteral("packages"), packages}});
    return ExitCode::Done;
}
