// SPDX-License-Identifier: GPL-3.0-or-later
// The program that the fault tests kill. It runs one job of the engine on a repository, opens one as after a fault, or
// saves settings in an endless loop. It prints "begun" when the job begins, and "done" when it has ended.
#include "engine/history/repositoryhistory.h"
#include "engine/reposhell.h"
#include "faultboard.h"
#include "files/settingsformat.h"
#include "savedstate.h"
#include "support/testapplication.h"

#include <QTextStream>

#include <cstdio>
#include <utility>

#include <dlfcn.h>

namespace
{
void say(const QString &word)
{
    std::printf("%s\n", qPrintable(word));
    std::fflush(stdout);
}

/** From now on the program can be killed, and the disk can be full. */
void begin()
{
    say("begun"_s);
    if (auto *const count = reinterpret_cast<decltype(&beginFaults)>(::dlsym(RTLD_DEFAULT, "beginFaults")))
        count();
}

[[noreturn]] void saveForEver(int first)
{
    begin();
    for (int number = first;; ++number) {
        SavedState::save(number);
        say(QString::number(number));
    }
}

std::function<void()> jobOf(RepoShell *shell, const QString &job, const QStringList &arguments)
{
    if (job == "add"_s)
        return [=] { shell->addPackages(arguments); };
    if (job == "import"_s)
        return [=] { shell->importRepo(arguments.first()); };
    if (job == "export"_s)
        return [=] { shell->exportRepo(arguments.first()); };
    if (job == "pack"_s)
        return [=] { shell->exportPackages(shell->packages(), arguments.first(), false); };
    if (job == "change"_s) {
        return [=] {
            RepoInfo info = shell->repoInfo();
            info.components = arguments.first();
            info.codename = arguments.value(1, info.codename);
            info.architectures = arguments.value(2, info.architectures);
            shell->changeRepo(shell->path(), info, {}, true);
        };
    }
    if (job == "back"_s)
        return [=] { shell->goBack(arguments.first().toInt()); };
    if (job == "undo"_s)
        return [=] { shell->goBack(RepositoryHistory::newestKept(shell->path())); };
    if (job == "prune"_s)
        return [=] { shell->pruneHistory(); };
    if (job == "sign"_s)
        return [=] { shell->signPackages(shell->packages(), arguments.first()); };
    if (job == "move"_s)
        return [=] { shell->changeRepo(arguments.first(), shell->repoInfo()); };
    if (job != "remove"_s)
        qFatal("no such job");
    return [=] {
        QList<PackageInfoPtr> packages;
        for (const PackageInfoPtr &package : shell->packages())
            if (arguments.contains(package->name))
                packages.append(package);
        if (packages.isEmpty())
            QMetaObject::invokeMethod(shell, &RepoShell::idle, Qt::QueuedConnection);
        shell->removePackages(packages);
    };
}
} // namespace

int main(int argc, char *argv[])
{
    TestApplication<QCoreApplication> application(argc, argv);
    QCoreApplication::setOrganizationName("corvana"_s);
    QCoreApplication::setApplicationName("velt-admin-repo"_s);
    SettingsFormat::useForOwnSettings();
    const QStringList words = QCoreApplication::arguments();
    const QString job = words.value(1);
    if (job == "save"_s)
        saveForEver(words.value(2).toInt());

    RepoShell shell;
    shell.setDependsRepoType(DependsNowhere);
    HistoryLimits limits;
    limits.points = qMax(1, qEnvironmentVariable("FAULTS_POINTS", "20"_s).toInt());
    shell.setHistoryLimits(limits);
    const bool answer = qEnvironmentVariable("FAULTS_ANSWER") != "no"_s;
    const auto agree = [&shell, answer](const QString &, const QString &text) {
        say("question: "_s + text);
        // What the job is about is no matter of chance.
        shell.setAnswer(answer || shell.questionTraits().kind == QuestionKind::Extend);
    };
    QObject::connect(&shell, &RepoShell::question, &application, agree, Qt::BlockingQueuedConnection);
    const auto replace = [](RepoEnums::ErrorCode, PackageReplacementRules *rules) {
        rules->value = PackageReplacementRules::ReplaceAll;
    };
    QObject::connect(&shell,
                     &RepoShell::requestForReplacementHandlingByUser,
                     &application,
                     replace,
                     Qt::BlockingQueuedConnection);
    QObject::connect(
        &shell, &RepoShell::critical, &application, [](const QString &text, const QString &more) {
            say("critical: "_s + text + u'|' + more);
        });
    bool isOpen = job == "open"_s;
    if (isOpen)
        begin();
    QObject::connect(&shell, &RepoShell::idle, &application, [&] {
        if (std::exchange(isOpen, true)) {
            say("done"_s);
            QCoreApplication::quit();
            return;
        }
        begin();
        jobOf(&shell, job, words.mid(3))();
    });
    shell.openRepo(words.value(2));
    return QCoreApplication::exec();
}
