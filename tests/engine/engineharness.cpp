// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"

#include <QSignalSpy>

EngineHarness::EngineHarness()
{
    info.name = "repo"_s;
    info.codename = "dogwood"_s;
    info.suite = "stable"_s;
    info.architectures = "amd64"_s;
    info.components = "main contrib"_s;
    // Whoever wants dependencies checked says so, and gives apt sources of its own.
    shell.setDependsRepoType(DependsNowhere);
    const auto pair = [](QStringList *list) {
        return [list](const QString &a, const QString &b) { list->append(a + u'|' + b); };
    };
    const auto event = [this](char mark) {
        return [this, mark](const PackageInfoPtr &package) {
            events.append(QLatin1Char(mark)
                          + "%1 %2 %3"_s.arg(package->name, package->version, package->architecture));
        };
    };
    connect(&shell, &RepoShell::started, this, [this](const QString &text) { started.append(text); });
    connect(&shell, &RepoShell::finished, this, [this](RepoEnums::JobId job, const QString &message) {
        lastJob = job;
        finished.append(message);
    });
    connect(&shell, &RepoShell::critical, this, pair(&criticals));
    connect(&shell, &RepoShell::progressRangeChanged, this, [this](int range) { ranges.append(range); });
    connect(&shell, &RepoShell::progressStepChanged, this, [this](int step) { steps.append(step); });
    connect(&shell, &RepoShell::noted, this, [this](const QString &text) { notes.append(text); });
    connect(&shell, &RepoShell::packageAdded, this, event('+'));
    connect(&shell, &RepoShell::packageRemoved, this, event('-'));
    connect(&shell, &RepoShell::packageChanged, this, event('~'));
    const auto answer = [this, note = pair(&questions)](const QString &title, const QString &question) {
        note(title, question);
        whileAsked();
        shell.setAnswer(reply);
    };
    connect(&shell, &RepoShell::question, this, answer, Qt::BlockingQueuedConnection);
    using Rules = PackageReplacementRules;
    const auto choose = [this](Code code, Rules *rules, const PackageInfoPtr &, bool single) {
        collisions.append(code);
        singles.append(single);
        const CollidingFile newcomer = shell.collidingFile();
        newcomers.append(newcomer.fileName + u' ' + newcomer.version
                         + (newcomer.isLast ? " last"_s : QString()));
        whileAsked();
        rules->value = choice;
    };
    connect(
        &shell, &RepoShell::requestForReplacementHandlingByUser, this, choose, Qt::BlockingQueuedConnection);
}

QStringList EngineHarness::debs(const char *names, const char *version, const char *contents)
{
    QStringList files;
    for (const QString &name : QString::fromLatin1(names).split(u' '))
        files.append(deb(DebBuilder(name).version(QLatin1String(version)).contents(contents)));
    return files;
}

EngineHarness::Code EngineHarness::run(const std::function<void()> &start)
{
    static_cast<JobNotes &>(*this) = {};
    QSignalSpy idle(&shell, &RepoShell::idle);
    start();
    if (!idle.wait(120000))
        qFatal("the job did not end");
    shell.waitForStoring();
    return static_cast<Code>(shell.result());
}

QStringList EngineHarness::shown(const QList<PackageInfoPtr> &packages)
{
    QStringList texts;
    for (const PackageInfoPtr &package : packages)
        texts.append(
            "%1 %2 %3 %4"_s.arg(package->name, package->version, package->component, package->architecture));
    texts.sort();
    return texts;
}

QStringList EngineHarness::inDatabase() const
{
    return reprepro({"list"_s, shell.repoInfo().codename}).output.split(u'\n', Qt::SkipEmptyParts);
}

ProcessResult EngineHarness::reprepro(const QStringList &arguments) const
{
    return runProcess({"reprepro"_s, QStringList{"-b"_s, shell.path()} + arguments, {}, {}, -1});
}

bool EngineHarness::settled() const
{
    QSet<QString> named;
    for (const PackageInfoPtr &package : shell.packages())
        named.insert(package->filePath());
    QSet<QString> pool;
    QDirIterator files(shell.path() + "/pool"_s, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        pool.insert(files.next());
    QStringList ofJob;
    for (const auto *name : {"before", "copying", "put-back", "kept", "link"})
        ofJob.append("velt-admin-repo."_s + QLatin1String(name));
    const QStringList kept = QDir(shell.path() + "/db"_s).entryList(ofJob, QDir::AllEntries);
    const QStringList records = listed();
    // What its own jobs have done is no change of another program.
    const auto listing = readListing(shell.path(), shell.repoInfo());
    const bool isUnchanged = listing && compareListings(shell.packages(), *listing).isEmpty();
    if (isUnchanged && pool == named && inIndices() == records && inDatabase().size() == records.size()
        && kept.isEmpty() && !isExportOwed() && reprepro({"checkpool"_s}).succeeded())
        return true;
    qWarning() << isUnchanged << records << named << inIndices() << inDatabase() << pool << kept
               << isExportOwed();
    return false;
}

bool EngineHarness::complains(const QString &text, int count) const
{
    if (criticals.size() == count && trouble().contains(text))
        return true;
    qWarning() << criticals;
    return false;
}

bool EngineHarness::holds(const QString &packages) const
{
    if (listed().join(u',') == packages)
        return settled();
    qWarning() << listed();
    return false;
}

PackageInfoPtr EngineHarness::find(const QString &name, const QString &architecture) const
{
    for (const PackageInfoPtr &package : shell.packages())
        if (package->name == name && (architecture.isEmpty() || package->architecture == architecture))
            return package;
    qFatal("there is no package %s", qPrintable(name));
}
