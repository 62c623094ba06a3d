// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class ScratchFolder;
struct RepositoryInspection;

/** Whether reprepro may be run on a repository, and with which configuration. Made by RepositoryGate alone. */
class Admission
{
public:
    enum Verdict {
        Refused,
        NothingNamed, ///< its settings name no programs, and lead to no place outside of it
        Approved ///< the user has agreed to what they name
    };

    Verdict verdict() const { return m_verdict; }
    bool isGranted() const { return m_verdict != Refused; }
    /** Why it is refused, in words for the user. */
    QString reason() const { return m_reason; }
    QString path() const { return m_path; }
    /** The folder that reprepro reads instead of, or which is, conf below path(). */
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
 * What every run of reprepro has to pass: the settings of a repository can name programs, which would run with the
 * user's rights, and a repository can come from anybody. The user is asked once for each repository and content; a No
 * holds until forget().
 */
class RepositoryGate
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Asks a question with the safe answer No. */
    using Ask = std::function<bool(const QString &title, const QString &text)>;

    explicit RepositoryGate(Ask ask);
    ~RepositoryGate();

    /** Looks at the repository, and asks if need be, unless it has done so since the last forget(). */
    const Admission &admit(const QString &repoPath);
    /** The next admit() looks anew: for the end of a job, and when the description has been put back from a copy. */
    void forget();
    /** The same after a change of this program's own: what was approved before stays so, also after a move. */
    void renew(const QString &repoPath);
    /** The same for a copy of the repository, which is to take its place. */
    void renewForCopy(const QString &copyPath);

private:
    Ask m_ask;
    Admission m_admission;

    Admission::Verdict judge(const RepositoryInspection &found);
    void take(const QString &repoPath, const RepositoryInspection &found);
    static QString question(const QString &repoPath, const RepositoryInspection &found);
};
