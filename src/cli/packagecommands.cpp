// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/dryrun.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/packagejson.h"
#include "cli/terminal/stopsignal.h"
#include "engine/archive/archivecontents.h"
#include "engine/preview/previewrequest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace
{
/** The names on standard input, one a line, or separated by null characters when there is one. */
QStringList namesFromInput()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = input.readAll();
    QStringList names;
    const auto parts = bytes.split(bytes.contains('\0') ? '\0' : '\n');
    for (const QByteArray &part : parts) {
        if (!part.isEmpty())
            names.append(QFile::decodeName(part));
    }
    return names;
}

/** The package files that are meant: folders stand for those below them. */
QStringList packageFiles(const QStringList &words, const QString &repository)
{
    QStringList files;
    for (const QString &word : words) {
        const QString path = QDir::cleanPath(QDir::current().absoluteFilePath(word));
        if (QFileInfo(path).isDir())
            files += ArchiveContents::packagesBelow(path, repository, &StopSignal::isRaised);
        else
            files.append(path);
    }
    files.removeDuplicates();
    return files;
}
} // namespace

ExitCode Commands::list(const Invocation &invocation, Console &console)
{
    const auto reading = RepositoryReading::of(invocation.repository(), console);
    if (!reading)
        return ExitCode::Failed;
    const auto packages
        = PackageSelection(invocation.others(), PackageSelection::Patterns, invocation).of(reading->packages);
    if (console.isJson()) {
        console.write(PackageJson::text(packages));
        return ExitCode::Done;
    }
    QByteArray lines;
    for (const PackageInfoPtr &package : packages)
        lines += shownPackage(*package).toLocal8Bit() + '\n';
    console.write(lines);
    return ExitCode::Done;
}

ExitCode Commands::add(const Invocation &invocation, Console &console)
{
    QStringList words;
    for (const QString &operand : invocation.others())
        words += operand == QLatin1String("-") ? namesFromInput() : QStringList{operand};
    // From now on a stop ends the command in order; before, nothing would see it while the input is awaited.
    RepositorySession session(invocation, console);
    const QStringList files = packageFiles(words, invocation.repository());
    if (StopSignal::isRaised())
        return ExitCode::Stopped;
    if (files.isEmpty()) {
        console.error(QStringLiteral("nothing"),
                      QCoreApplication::translate("cli", "There are no package files."));
        return ExitCode::Failed;
    }
    if (!session.open())
        return session.exitCode();
    if (invocation.has("dry-run")) {
        PreviewRequest request;
        request.files = files;
        request.options = session.addOptions();
        return DryRun::show(session, console, request);
    }
    session.run([&] { session.shell().addPackages(files, session.addOptions()); });
    session.tellChanges();
    return session.exitCode();
}

ExitCode Commands::remove(const Invocation &invocation, Console &console)
{
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    const PackageSelection selection(invocation.others(), PackageSelection::Names, invocation);
    if (invocation.has("dry-run")) {
        const auto all = session.shell().packages();
        selection.tellUnmatched(all, console);
        PreviewRequest request;
        request.kind = ChangePreview::Remove;
        request.packages = selection.of(all);
        if (request.packages.isEmpty())
            return ExitCode::Failed;
        const ExitCode code = DryRun::show(session, console, request);
        return code == ExitCode::Done && !selection.unmatched(all).isEmpty() ? ExitCode::Findings : code;
    }
    const auto selected = session.runFor(
        selection, [&](const QList<PackageInfoPtr> &packages) { session.shell().removePackages(packages); });
    if (selected.packages.isEmpty())
        return ExitCode::Failed;
    session.tellChanges();
    const ExitCode code = session.exitCode();
    return code == ExitCode::Done && !selected.unmatched.isEmpty() ? ExitCode::Findings : code;
}
