// SPDX-License-Identifier: GPL-3.0-or-later
#include "engineharness.h"

#include "core/processutils.h"
#include "engine/packagelisting.h"
#include "support/literals.h"

#include <QSignalSpy>

#include <algorithm>

namespace
{
QString shown(const PackageInfo &package)
{
    return "%1 %2 %3 %4"_s.arg(package.name, package.version, package.component, package.architecture);
}

QString shownEvent(char mark, const PackageInfo &package)
{
    return QLatin1Char(mark) + "%1 %2 %3"_s.arg(package.name, package.version, package.architecture);
}

QStringList shown(const QList<PackageInfoPtr> &packages)
{
    QStringList texts;
    for (const PackageInfoPtr &package : packages)
        texts.append(shown(*package));
    texts.sort();
    return texts;
}
} // namespace

EngineHarness::EngineHarness(const QString &codename)
{
    info.name = "repo"_s;
    info.codename = codename;
    info.suite = "stable"_s;
    info.architectures = "amd64"_s;
    info.components = "main contrib"_s;
    connect(&shell, &RepoShell::started, this, [this](const QString &text) { started.append(text); });
    connect(&shell, &RepoShell::finished, this, [this](RepoEnums::JobId job, const QString &message) {
        finished.append({job, message});
    });
    connect(&shell, &RepoShell::critical, this, [this](const QString &text, const QString &details) {
        criticals.append(text + QLatin1Char('|') + details);
    });
    connect(&shell, &RepoShell::progressRangeChanged, this, [this](int range) { ranges.append(range); });
    connect(&shell, &RepoShell::progressStepChanged, this, [this](int step) { steps.append(step); });
    connect(&shell, &RepoShell::packageAdded, this, [this](const PackageInfoPtr &package) {
        events.append(shownEvent('+', *package));
    });
    connect(&shell, &RepoShell::packageRemoved, this, [this](const PackageInfoPtr &package) {
        events.append(shownEvent('-', *package));
    });
    connect(&shell, &RepoShell::packageChanged, this, [this](const PackageInfoPtr &package) {
        events.append(shownEvent('~', *package));
    });
    connect(
        &shell,
        &RepoShell::question,
        this,
        [this](const QString &title, const QString &text) {
            questions.append(title + QLatin1Char('|') + text);
            shell.setAnswer(answer(text));
        },
        Qt::BlockingQueuedConnection);
    connect(
        &shell,
        &RepoShell::requestForReplacementHandlingByUser,
        this,
        [this](
            RepoEnums::ErrorCode code, PackageReplacementRules *rule, const PackageInfoPtr &, bool single) {
            collisions.append(code);
            singles.append(single);
            rule->value = resolve(code);
        },
        Qt::BlockingQueuedConnection);
}

void EngineHarness::create()
{
    if (shell.createRepo(repoPath(), info) != RepoEnums::SUCCESS)
        qFatal("the repository could not be created: %s", qPrintable(criticals.join(QLatin1Char('\n'))));
}

int EngineHarness::run(const std::function<void()> &start)
{
    clear();
    QSignalSpy idle(&shell, &RepoShell::idle);
    start();
    if (!idle.wait(120000))
        qFatal("the job did not end");
    return shell.result();
}

void EngineHarness::clear()
{
    started.clear();
    finished.clear();
    criticals.clear();
    questions.clear();
    ranges.clear();
    steps.clear();
    events.clear();
    collisions.clear();
    singles.clear();
}

QStringList EngineHarness::listed() const
{
    return shown(shell.packages());
}

QStringList EngineHarness::inDatabase(const QString &path) const
{
    const ProcessResult result = runProcess(
        {"reprepro"_s, {"-b"_s, path.isEmpty() ? repoPath() : path, "list"_s, info.codename}, {}, {}, -1});
    QStringList lines = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.sort();
    return lines;
}

QStringList EngineHarness::inIndices() const
{
    return shown(listPackages(shell.path(), shell.repoInfo()));
}

PackageInfoPtr EngineHarness::find(const QString &name, const QString &architecture) const
{
    const auto packages = shell.packages();
    const auto found = std::find_if(packages.cbegin(), packages.cend(), [&](const PackageInfoPtr &package) {
        return package->name == name && (architecture.isEmpty() || package->architecture == architecture);
    });
    return found == packages.cend() ? PackageInfoPtr() : *found;
}
