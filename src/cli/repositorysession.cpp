// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/repositorysession.h"

#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/terminal/console.h"
#include "cli/terminal/packagejson.h"
#include "engine/reprepro/joblock.h"
#include "engine/reprepro/repolock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QHash>
#include <QJsonObject>
#include <QSet>
#include <QSettings>
#include <QTimer>

#include <algorithm>

namespace
{
/** The option that answers a question of this kind with yes. */
const char *optionFor(QuestionKind kind)
{
    switch (kind) {
    case QuestionKind::GoOn:
        return "yes";
    case QuestionKind::TrustPrograms:
        return "trust-settings";
    case QuestionKind::Extend:
        return "extend";
    case QuestionKind::GiveUp:
        break;
    }
    return nullptr;
}

std::optional<PackageReplacementRules::Rule> ruleOf(const QString &word)
{
    using Rules = PackageReplacementRules;
    static const QHash<QString, Rules::Rule> rules{{QStringLiteral("newer"), Rules::PreferHigher},
                                                   {QStringLiteral("older"), Rules::PreferLower},
                                                   {QStringLiteral("all"), Rules::ReplaceAll},
                                                   {QStringLiteral("none"), Rules::ReplaceNone}};
    const auto found = rules.constFind(word);
    return found == rules.cend() ? std::nullopt : std::optional(*found);
}

QSet<PackageKey> keysOf(const QList<PackageInfoPtr> &packages)
{
    QSet<PackageKey> keys;
    for (const PackageInfoPtr &package : packages)
        keys.insert(PackageKey::of(*package));
    return keys;
}
} // namespace

RepositorySession::RepositorySession(const Invocation &invocation, Console &console)
    : m_invocation(invocation)
    , m_console(console)
    // What a job asks then gets its safe answer, which for the question whether to stop is yes.
    , m_stop([this] { m_shell.setClosing(); })
{
    // Checks are asked for by a command of their own.
    m_shell.setCheckDependsOnAdd(false);
    m_shell.setOnlyLooking(invocation.has("dry-run"));
    QSettings settings;
    m_shell.setExternalRepos(ExternalRepos::load(settings));
    m_shell.setHistoryLimits(HistoryLimits::load(settings));
    connectShell();
}

RepositorySession::~RepositorySession() = default;

void RepositorySession::connectShell()
{
    connect(&m_shell, &RepoShell::packageAdded, this, [this](const PackageInfoPtr &package) {
        if (!m_isOpening)
            m_added.append(package);
    });
    connect(&m_shell, &RepoShell::packageChanged, this, [this](const PackageInfoPtr &package) {
        m_changed.append(package);
    });
    connect(&m_shell, &RepoShell::packageRemoved, this, [this](const PackageInfoPtr &package) {
        m_removed.append(package);
    });
    connect(&m_shell, &RepoShell::critical, this, &RepositorySession::tell);
    connect(&m_shell, &RepoShell::fileBegun, this, [this](const QString &file) { m_file = file; });
    connect(&m_shell, &RepoShell::noted, this, [this](const QString &text) {
        m_findings += m_remarksAreFindings ? 1 : 0;
        if (m_remarksAreFindings)
            m_console.error(QStringLiteral("refused"), text, {}, m_file);
        else
            m_console.remark(text);
    });
    connect(&m_shell, &RepoShell::started, this, [this](const QString &job) { m_job = job; });
    connect(&m_shell, &RepoShell::progressStepChanged, this, [this] {
        m_console.progress(m_job, m_shell.progress());
    });
    connect(&m_shell, &RepoShell::finished, this, [this] { m_console.endProgress(); });
    connect(
        &m_shell,
        &RepoShell::question,
        this,
        [this](const QString &title, const QString &text) {
            const QuestionTraits traits = m_shell.questionTraits();
            m_shell.setAnswer(!isWithoutDescription()
                              && m_console.ask({title, text, traits.safeAnswer, optionFor(traits.kind)},
                                               &StopSignal::isRaised));
        },
        Qt::BlockingQueuedConnection);
    connect(
        &m_shell,
        &RepoShell::requestForReplacementHandlingByUser,
        this,
        [this](RepoEnums::ErrorCode, PackageReplacementRules *rule) { *rule = collisionRule(); },
        Qt::BlockingQueuedConnection);
}

void RepositorySession::tell(const QString &text,
                             const QString &details,
                             RepoEnums::ErrorType type,
                             RepoEnums::ErrorCause cause)
{
    m_isLocked = m_isLocked || cause == RepoEnums::REPOSITORY_BUSY;
    // Told only when the waiting is over.
    if (cause == RepoEnums::REPOSITORY_BUSY && m_invocation.has("wait"))
        return;
    if (cause == RepoEnums::NOTHING_TO_UPGRADE) {
        m_console.remark(text);
        return;
    }
    ++m_findings;
    const QString code = cause == RepoEnums::REPOSITORY_BUSY ? QStringLiteral("locked")
                         : type == RepoEnums::WARNING        ? QStringLiteral("warning")
                                                             : QStringLiteral("error");
    m_console.error(code, text, details, m_file);
}

AddOptions RepositorySession::addOptions()
{
    m_rule = ruleOf(m_invocation.value("on-collision"));
    m_remarksAreFindings = !m_rule;
    AddOptions options;
    options.component = m_invocation.value("component");
    options.sign = m_invocation.has("sign-packages");
    options.signKeyId = m_invocation.value("sign-packages");
    return options;
}

PackageReplacementRules RepositorySession::collisionRule() const
{
    return {m_rule.value_or(PackageReplacementRules::ReplaceNone)};
}

bool RepositorySession::extends() const
{
    return m_invocation.has("extend");
}

bool RepositorySession::open()
{
    m_isOpening = true;
    // The listing of a repository in the middle of a job is none to work with.
    m_isOpen
        = run([this] { m_shell.openRepo(m_invocation.repository()); }) == RepoEnums::SUCCESS && !m_isLocked;
    m_isOpening = false;
    m_opened = m_shell.packages();
    if (m_isOpen)
        RepositoryReading::tellOfOldIndices(m_invocation.repository(), m_console);
    return m_isOpen;
}

void RepositorySession::openOnce()
{
    m_isOpening = true;
    m_result = runOnce([this] { m_shell.openRepo(m_invocation.repository()); });
    m_isOpening = false;
}

bool RepositorySession::isWithoutDescription()
{
    const QString file = m_invocation.repository() + QLatin1String("/conf/distributions");
    if (!m_isOpening || QFile::exists(file))
        return false;
    // The window offers to import such a folder, for which there is a command of its own here.
    m_console.error(
        QStringLiteral("repository"),
        QCoreApplication::translate("cli", "The folder %1 is no repository.").arg(m_invocation.repository()),
        {},
        file);
    return true;
}

int RepositorySession::run(const std::function<void()> &start)
{
    QElapsedTimer waited;
    waited.start();
    m_result = runOnce(start);
    while (m_isLocked && waitForOther(waited)) {
        // What the other job has changed must not be taken for what was there before.
        if (m_isOpen)
            openOnce();
        if (!m_isOpen || (!m_isLocked && m_result == RepoEnums::SUCCESS))
            m_result = runOnce(start);
    }
    if (m_isLocked && m_invocation.has("wait") && !StopSignal::isRaised())
        m_console.error(QStringLiteral("locked"),
                        QCoreApplication::translate("cli", "Another job still works on the repository %1.")
                            .arg(m_invocation.repository()));
    return m_result;
}

RepositorySession::Selected
RepositorySession::runFor(const PackageSelection &selection,
                          const std::function<void(const QList<PackageInfoPtr> &)> &start)
{
    Selected selected;
    run([&] {
        const auto all = m_shell.packages();
        selected.packages = selection.of(all);
        const QStringList unmatched = selection.unmatched(all);
        // Told once, although the job may be run again.
        if (unmatched != selected.unmatched)
            selection.tellUnmatched(all, m_console);
        selected.unmatched = unmatched;
        if (!selected.packages.isEmpty())
            start(selected.packages);
    });
    return selected;
}

int RepositorySession::runOnce(const std::function<void()> &start)
{
    m_isLocked = false;
    m_findings = 0;
    m_file.clear();
    QEventLoop loop;
    connect(&m_shell, &RepoShell::idle, &loop, &QEventLoop::quit);
    start();
    if (StopSignal::isRaised())
        m_shell.setClosing();
    if (m_shell.isRunning())
        loop.exec();
    return m_shell.result();
}

bool RepositorySession::waitForOther(const QElapsedTimer &waited)
{
    constexpr int Interval = 100; // milliseconds
    const qint64 patience = m_invocation.value("wait").toLongLong() * 1000;
    // What is free for a moment only must not keep us beyond the time.
    if (waited.elapsed() >= patience)
        return false;
    QEventLoop loop;
    QTimer timer;
    bool isFree = false;
    connect(&timer, &QTimer::timeout, &loop, [&] {
        const RepoLock::State lock = RepoLock::state(m_invocation.repository());
        isFree = (lock == RepoLock::State::Free || lock == RepoLock::State::Stale)
                 && JobLock().take(m_invocation.repository());
        if (isFree || StopSignal::isRaised() || waited.elapsed() >= patience)
            loop.quit();
    });
    timer.start(Interval);
    loop.exec();
    return isFree && !StopSignal::isRaised();
}

QList<PackageInfoPtr> RepositorySession::added() const
{
    // A package that could not be replaced was put back.
    const QSet<PackageInfoPtr> back(m_removed.cbegin(), m_removed.cend());
    QList<PackageInfoPtr> added;
    std::copy_if(m_added.cbegin(), m_added.cend(), std::back_inserter(added), [&back](const auto &package) {
        return !back.contains(package);
    });
    return added;
}

QList<PackageInfoPtr> RepositorySession::replaced() const
{
    // The others have only new results of a check.
    const QSet<PackageKey> removed = keysOf(m_removed);
    QHash<PackageKey, PackageInfoPtr> before;
    for (const PackageInfoPtr &package : m_opened)
        before.insert(PackageKey::of(*package), package);
    const auto isOther = [&before](const PackageInfo &package) {
        const PackageInfoPtr earlier = before.value(PackageKey::of(package));
        return earlier && earlier->control.text() != package.control.text();
    };
    QList<PackageInfoPtr> replaced;
    std::copy_if(
        m_changed.cbegin(), m_changed.cend(), std::back_inserter(replaced), [&](const auto &package) {
            return removed.contains(PackageKey::of(*package)) || isOther(*package);
        });
    return replaced;
}

QList<PackageInfoPtr> RepositorySession::checked() const
{
    return changed([](const PackageInfo &package) { return package.hasDependsInfo(); });
}

QList<PackageInfoPtr> RepositorySession::completelyChecked() const
{
    return changed(
        [](const PackageInfo &package) { return package.installabilityState() != InstallabilityUnknown; });
}

QList<PackageInfoPtr> RepositorySession::changed(bool (*isWanted)(const PackageInfo &package)) const
{
    const QSet<PackageInfoPtr> records(m_changed.cbegin(), m_changed.cend());
    QList<PackageInfoPtr> found;
    const auto packages = m_shell.packages();
    std::copy_if(packages.cbegin(), packages.cend(), std::back_inserter(found), [&](const auto &package) {
        return isWanted(*package) && records.contains(package);
    });
    return found;
}

QList<PackageInfoPtr> RepositorySession::removed() const
{
    const QSet<PackageKey> back = keysOf(m_added + m_changed);
    QList<PackageInfoPtr> removed;
    std::copy_if(m_removed.cbegin(), m_removed.cend(), std::back_inserter(removed), [&](const auto &package) {
        return !back.contains(PackageKey::of(*package));
    });
    return removed;
}

ExitCode RepositorySession::exitCode() const
{
    return exitCode(!m_added.isEmpty() || !m_changed.isEmpty() || !m_removed.isEmpty());
}

ExitCode RepositorySession::exitCode(bool isAnyChanged) const
{
    // A job also ends with CANCEL after a question whose answer was no.
    if (StopSignal::isRaised() && (m_isLocked || m_result != RepoEnums::SUCCESS))
        return ExitCode::Stopped;
    if (m_isLocked)
        return ExitCode::Locked;
    if (m_result == RepoEnums::SUCCESS && m_findings == 0)
        return ExitCode::Done;
    return isAnyChanged ? ExitCode::Findings : ExitCode::Failed;
}

QJsonObject RepositorySession::changes(QJsonObject result)
{
    const auto tell = [&](const char *key, const QString &text, const QList<PackageInfoPtr> &packages) {
        for (const PackageInfoPtr &package : packages)
            m_console.line(text.arg(shownPackage(*package)));
        result.insert(QLatin1String(key), PackageJson::array(packages));
    };
    tell("added", QCoreApplication::translate("cli", "Added: %1"), added());
    tell("replaced", QCoreApplication::translate("cli", "Replaced: %1"), replaced());
    tell("removed", QCoreApplication::translate("cli", "Removed: %1"), removed());
    return result;
}

void RepositorySession::tellChanges(const QJsonObject &result)
{
    m_console.object(changes(result));
}
