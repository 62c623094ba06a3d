// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/repositoryextending.h"

#include "core/countof.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/history/runningpoint.h"
#include "engine/jobs/changejob.h"
#include "engine/jobs/descriptionchange.h"
#include "engine/recovery/packagerefresh.h"
#include "engine/repository/changerules.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"

bool RepositoryExtending::isWanted(const RepositoryExtension &extension, int files)
{
    const DistributionsFile file(m_context.path());
    const auto text = file.readBytes();
    // A job that adds packages must not lose lines that the administrator has written.
    if (!text || Distributions::distributionCount(QString::fromUtf8(*text)) != 1
        || !Distributions::lostLines(QString::fromUtf8(*text), extension.appliedTo(file.parsed(*text)))
                .isEmpty())
        return false;
    QStringList lacks;
    if (!extension.architectures.isEmpty())
        lacks << tr("the architecture(s) %1", nullptr, countOf(extension.architectures))
                     .arg(extension.architectures.join(QLatin1String(", ")));
    if (!extension.components.isEmpty())
        lacks << tr("the component(s) %1", nullptr, countOf(extension.components))
                     .arg(extension.components.join(QLatin1String(", ")));
    QString question
        = tr("%n package file(s) cannot be added, because the repository lacks %1.", nullptr, files)
              .arg(lacks.join(QLatin1String("; ")));
    question
        += QLatin1Char(' ')
           + tr("The repository can get what it lacks, and then the files. This changes its description.");
    if (!extension.architectures.isEmpty())
        question += QLatin1Char(' ')
                    + tr("Its architecture-independent packages will serve the new architectures too.");
    QuestionTraits traits;
    traits.kind = QuestionKind::Extend;
    traits.yes = tr("Add %1 to the repository and go on").arg(extension.names());
    return m_context.control.ask(tr("Repository change"), question, traits);
}

bool RepositoryExtending::run(const RepositoryExtension &extension)
{
    const QString path = m_context.path();
    const DistributionsFile file(path);
    const QByteArray text = file.readBytes().value_or(QByteArray());
    const RepoInfo before = file.parsed(text);
    const RepoInfo after = extension.appliedTo(before);
    if (before == after)
        return true;
    if (!ChangeJob(m_context).isPossible(text, {}, after))
        return false;
    const ProcessResult kept = m_session.keep();
    if (!kept.succeeded()) {
        m_context.errors.runFailed(tr("Failed to change repository!"), kept.errorOutput);
        return false;
    }
    if (!RunningPoint::setChangesDescription(path, text, Distributions::text(after).toUtf8())) {
        m_context.errors.critical(
            tr("Failed to change repository!"),
            tr("No copy of the description can be kept in %1.").arg(path + QLatin1String("/db")));
        return false;
    }
    m_context.progress.announce(tr("Adding %1 to the repository").arg(extension.names()));
    const RepoChange change{before, after, false};
    const QList<PackageInfoPtr> packages = m_context.packages.all();
    DescriptionChange description(m_context, m_session, change, text);
    if (!description.extend()) {
        m_context.errors.critical(tr("Failed to change repository!"), description.details());
        m_session.setDisturbed();
        return false;
    }
    PackageRefresh::show(m_context, change.left(packages), {});
    Q_EMIT m_context.listener.repoInfoAdded();
    return true;
}
