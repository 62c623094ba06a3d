// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class ScratchFolder;
struct RepositoryInspection;

/** Whether reprepro may run on a repository, and with which configuration. Only RepositoryGate creates it. */
class Admission
{
public:
    /** The decision about a repository. */
    enum Verdict {
        Refused,
        NothingNamed, ///< the configuration names no programs and no places outside of the repository
        Approved ///< the user has approved what the configuration names
    };

    Verdict verdict() const { return m_verdict; }
    bool isGranted() const { return m_verdict != Refused; }
    /** The reason of a refusal, as text for the user. */
    QString reason() const { return m_reason; }
    QString path() const { return m_path; }
    /** The configuration folder for reprepro: conf below path(), or a copy of it. */
    QString configFolder() const { return m_configFolder; }

private:
    friend class RepositoryGate;
    Admission() = default;

    Verdict m_verdict = Refused;
    QString m_reason;
    QString m_path;
    QString m_identity;
    QString m_configFolder;
    std::shared_ptr<const ScratchFolder> m_copy;
};

/**
 * Check before every run of reprepro. The configuration of a repository can name programs, which would run with the
 * user's rights, and a repository can come from anybody. The user is asked once for each repository and configuration.
 * A "No" is valid until forget().
 */
class RepositoryGate
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Asks a question; "No" is the safe default answer. */
    using Ask = std::function<bool(const QString &title, const QString &text)>;

    explicit RepositoryGate(Ask ask);
    ~RepositoryGate();

    /** Inspects the repository and, if necessary, asks the user. Repeats nothing until the next forget(). */
    const Admission &admit(const QString &repoPath);
    /**
     * Makes the next admit() inspect again. Called at the end of a job and after a description was restored from a
     * copy.
     */
    void forget();
    /** The same after a change by this program: an approved repository stays approved, also after a move. */
    void renew(const QString &repoPath);
    /** The same for a copy of the repository that will replace it. */
    void renewForCopy(const QString &copyPath);

private:
    Ask m_ask;
    Admission m_admission;

    Admission::Verdict judge(const RepositoryInspection &found);
    void take(const QString &repoPath, const RepositoryInspection &found);
    static QString question(const QString &repoPath, const RepositoryInspection &found);
};
