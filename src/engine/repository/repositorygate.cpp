// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/repositorygate.h"

#include "core/countof.h"
#include "engine/repository/repositoryapprovals.h"
#include "engine/repository/repositoryinspection.h"

#include <QSettings>

#include <algorithm>
#include <utility>

namespace
{
/** A short line without characters that could disguise the text after them. */
QString shortened(QString line)
{
    constexpr int MostCharacters = 160;
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return !c.isPrint(); }, QChar::ReplacementCharacter);
    return line.size() > MostCharacters ? line.left(MostCharacters) + QChar(0x2026) : line;
}
} // namespace

RepositoryGate::RepositoryGate(Ask ask)
    : m_ask(std::move(ask))
{ }

RepositoryGate::~RepositoryGate() = default;

const Admission &RepositoryGate::admit(const QString &repoPath)
{
    // Another folder may be at this path since the inspection.
    if (!m_admission.m_identity.isEmpty() && m_admission.m_path == repoPath
        && m_admission.m_identity == RepositoryInspection::identityOf(repoPath))
        return m_admission;
    take(repoPath, RepositoryInspection::of(repoPath));
    return m_admission;
}

void RepositoryGate::forget()
{
    m_admission = Admission();
}

void RepositoryGate::renew(const QString &repoPath)
{
    const Admission before = std::exchange(m_admission, Admission());
    if (before.m_verdict != Admission::Approved)
        return;
    const auto found = RepositoryInspection::of(repoPath);
    if (found.identity != before.m_identity || found.named.isEmpty())
        return;
    QSettings settings;
    RepositoryApprovals(settings).add(found.identity, found.digest);
}

void RepositoryGate::renewForCopy(const QString &copyPath)
{
    const Admission before = std::exchange(m_admission, Admission());
    if (before.m_verdict != Admission::Approved)
        return;
    const auto found = RepositoryInspection::of(copyPath);
    QSettings settings;
    RepositoryApprovals approvals(settings);
    // The user is asked again only when the copy's configuration differs from the approved one.
    if (approvals.contain(before.m_identity, found.digest))
        approvals.add(found.identity, found.digest);
}

void RepositoryGate::take(const QString &repoPath, const RepositoryInspection &found)
{
    m_admission = Admission();
    m_admission.m_path = repoPath;
    m_admission.m_identity = found.identity;
    m_admission.m_configFolder = found.configFolder;
    m_admission.m_copy = found.copy;
    m_admission.m_verdict = judge(found);
    if (m_admission.isGranted())
        return;
    const QString notAgreed
        = tr("You have not agreed to what the settings of the repository %1 would run or change.");
    m_admission.m_reason = found.refusal.isEmpty() ? notAgreed.arg(repoPath) : found.refusal;
}

Admission::Verdict RepositoryGate::judge(const RepositoryInspection &found)
{
    if (!found.refusal.isEmpty())
        return Admission::Refused;
    if (found.named.isEmpty())
        return Admission::NothingNamed;
    QSettings settings;
    RepositoryApprovals approvals(settings);
    if (approvals.contain(found.identity, found.digest))
        return Admission::Approved;
    if (!m_ask(tr("Programs of the repository"), question(m_admission.m_path, found)))
        return Admission::Refused;
    approvals.add(found.identity, found.digest);
    return Admission::Approved;
}

QString RepositoryGate::question(const QString &repoPath, const RepositoryInspection &found)
{
    constexpr int MostLines = 10;
    QStringList lines;
    for (const QString &line : found.named.mid(0, MostLines))
        lines << shortened(line);
    if (found.named.size() > MostLines)
        lines << tr("... and %n more", nullptr, countOf(found.named) - MostLines);
    QString text
        = tr("The settings of the repository %1 name programs, which would be run with your rights, or "
             "lead out of its folder:\n\n%2\n\n")
              .arg(repoPath, lines.join(QLatin1Char('\n')));
    if (found.isShared)
        text += tr("Other users can change this repository.") + QLatin1Char(' ');
    return text + tr("Do you trust these settings?");
}
