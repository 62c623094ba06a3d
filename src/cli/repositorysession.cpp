// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/repositorysession.h"

#include "cli/console.h"
#include "cli/invocation.h"
#include "engine/reprepro/joblock.h"

#include <QEventLoop>
#include <QSet>
#include <QSettings>
#include <QTimer>

#include <algorithm>

RepositorySession::RepositorySession(const Invocation &invocation, Console &console)
    : m_invocation(invocation)
    , m_console(console)
    , m_stop([this] { m_shell.cancel(); })
{
    // Checks are asked for by a command of their own.
    m_shell.setCheckDependsOnAdd(false);
    QSettings settings;
    m_shell.setExternalRepos(ExternalRepos::load(settings));
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
    connect(&m_shell, &RepoShell::noted, this, [this](const QString &text) {
        m_findings += m_remarksAreFindings ? 1 : 0;
        if (m_remarksAreFindings)
            m_console.error(QStringLiteral("refused"), text);
        else
            m_console.remark(text);
    });
    connect(&m_shell, &RepoShell::started, this, [this](const QString &job) { m_job = job; });
    connect(&m_shell, &RepoShell::progressStepChanged, this, [this] {
        m_console.progress(m_job, m_shell.progress());
    });
    connect(&m_shell, &RepoShell::finished, this, [this](RepoEnums::JobId, const QString &message) {
        m_console.endProgress();
        m_message = message;
    });
    connect(
        &m_shell,
        &RepoShell::question,
        this,
        [this](const QString &title, const QString &text) {
            m_shell.setAnswer(m_console.ask(title, text, false, &StopSignal::isRaised));
        },
        Qt::BlockingQueuedConnection);
    connect(
        &m_shell,
        &RepoShell::requestForReplacementHandlingByUser,
        this,
        [this](RepoEnums::ErrorCode, PackageReplacementRules *rule) {
            rule->value = m_rule.value_or(PackageReplacementRules::ReplaceNone);
        },
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
    ++m_findings;
    const QString code = cause == RepoEnums::REPOSITORY_BUSY ? QStringLiteral("locked")
                         : type == RepoEnums::WARNING        ? QStringLiteral("warning")
                                                             : QStringLiteral("error");
    m_console.error(code, text, details);
}

bool RepositorySession::open()
{
    m_isOpening = true;
    const int result = run([this] { m_shell.openRepo(m_invocation.repository()); });
    m_isOpening = false;
    return result == RepoEnums::SUCCESS;
}

int RepositorySession::run(const std::function<void()> &start)
{
    QElapsedTimer waited;
    waited.start();
    do
        m_result = runOnce(start);
    while (m_isLocked && waitForOther(waited));
    if (m_isLocked && m_invocation.has("wait"))
        m_console.error(QStringLiteral("locked"),
                        tr("Another job still works on the repository %1.").arg(m_invocation.repository()));
    return m_result;
}

int RepositorySession::runOnce(const std::function<void()> &start)
{
    m_isLocked = false;
    m_findings = 0;
    QEventLoop loop;
    connect(&m_shell, &RepoShell::idle, &loop, &QEventLoop::quit);
    start();
    if (StopSignal::isRaised())
        m_shell.cancel();
    if (m_shell.isRunning())
        loop.exec();
    return m_shell.result();
}

bool RepositorySession::waitForOther(const QElapsedTimer &waited)
{
    constexpr int Interval = 100; // milliseconds
    const qint64 patience = m_invocation.value("wait").toLongLong() * 1000;
    // A reprepro that was called by hand does not have the lock that is looked at here.
    if (waited.elapsed() >= patience)
        return false;
    QEventLoop loop;
    QTimer timer;
    bool isFree = false;
    connect(&timer, &QTimer::timeout, &loop, [&] {
        isFree = JobLock().take(m_invocation.repository());
        if (isFree || StopSignal::isRaised() || waited.elapsed() >= patience)
            loop.quit();
    });
    timer.start(Interval);
    loop.exec();
    return isFree && !StopSignal::isRaised();
}

QList<PackageInfoPtr> RepositorySession::removed() const
{
    QSet<PackageKey> replaced;
    for (const PackageInfoPtr &package : m_changed)
        replaced.insert(PackageKey::of(*package));
    QList<PackageInfoPtr> removed;
    std::copy_if(m_removed.cbegin(), m_removed.cend(), std::back_inserter(removed), [&](const auto &package) {
        return !replaced.contains(PackageKey::of(*package));
    });
    return removed;
}

ExitCode RepositorySession::exitCode() const
{
    const bool isAnyChanged = !m_added.isEmpty() || !m_changed.isEmpty() || !m_removed.isEmpty();
    if (m_isLocked)
        return ExitCode::Locked;
    if (m_result == RepoEnums::CANCEL)
        return ExitCode::Stopped;
    if (m_result == RepoEnums::SUCCESS && m_findings == 0)
        return ExitCode::Done;
    return isAnyChanged ? ExitCode::Findings : ExitCode::Failed;
}
