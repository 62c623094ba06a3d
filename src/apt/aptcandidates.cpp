// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptcandidates.h"

#include "apt/aptcommands.h"
#include "apt/aptoutput.h"
#include "apt/aptpolicy.h"
#include "apt/aptutils.h"
#include "core/countof.h"

#include <QFileInfo>

#include <utility>

namespace
{
/** Most characters of names in one run. The system allows thirty times as many for all arguments. */
constexpr int BatchLength = 60000;

/** The values in the output of "apt-config dump" with our format: a key and a value on each line. */
QSet<QString> dumpedValues(const QString &output)
{
    QSet<QString> values;
    const QStringList lines = output.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString value = line.section(QLatin1Char(' '), 1).trimmed();
        if (!value.isEmpty())
            values.insert(value);
    }
    return values;
}
} // namespace

AptCandidates::AptCandidates(QString sourceList, OriginFilter accepts, QStringList environment)
    : m_sourceList(std::move(sourceList))
    , m_accepts(std::move(accepts))
    , m_environment(std::move(environment))
{ }

bool AptCandidates::prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped)
{
    if (!questions.isEmpty() && !prepare(stopped))
        return m_failed;
    QStringList words;
    for (const PackageQuestion &question : questions) {
        if (m_asked.contains(question))
            continue;
        m_asked.insert(question);
        if (isAskable(question))
            words.append(question.name + QLatin1Char(':') + question.architecture);
    }
    return ask(
        QStringLiteral("policy"), words, stopped, [this](const QString &output) { readVersions(output); });
}

bool AptCandidates::isAskable(const PackageQuestion &question) const
{
    // apt's sources list no installer packages, and an ordinary package of the same name cannot replace one.
    return question.type == PackageType::Deb && AptCommands::isPackageName(question.name)
           && AptCommands::isArchitecture(question.architecture) && canAnswer(question);
}

bool AptCandidates::canAnswer(const PackageQuestion &question) const
{
    // Questions that no apt could answer are not a problem of apt's configuration.
    return m_architectures.isEmpty() || m_architectures.contains(question.architecture)
           || question.architecture == QLatin1String("all") || question.type != PackageType::Deb
           || !AptCommands::isArchitecture(question.architecture);
}

QVector<Candidate> AptCandidates::candidates(const PackageQuestion &question) const
{
    // apt lists packages of architecture "all" under its own architecture.
    if (question.architecture == QLatin1String("all"))
        return m_answers.value({question.name, m_architecture, question.type});
    return m_answers.value(question);
}

void AptCandidates::getReady(const StopRequest &stopped)
{
    QString output;
    if (prepare(stopped))
        run(AptCommands::AptCache, QStringList{QStringLiteral("gencaches")} + options(), stopped, output);
    m_failed = false;
    m_errorDetail.clear();
}

bool AptCandidates::prefetchProviders(const QVector<PackageQuestion> &questions, const StopRequest &stopped)
{
    if (!questions.isEmpty() && !prepare(stopped))
        return m_failed;
    QStringList words;
    for (const PackageQuestion &question : questions) {
        if (m_askedProviders.contains(question.name) || !isAskable(question))
            continue;
        m_askedProviders.insert(question.name);
        words.append(question.name);
    }
    return ask(QStringLiteral("showpkg"), words, stopped, [this](const QString &output) {
        const auto providers = AptPolicy::providers(output);
        for (auto it = providers.cbegin(); it != providers.cend(); ++it)
            m_providers.insert(it.key(), it.value());
    });
}

QVector<Provider> AptCandidates::providers(const PackageQuestion &question) const
{
    return question.type == PackageType::Deb && canAnswer(question) ? m_providers.value(question.name)
                                                                    : QVector<Provider>();
}

QString AptCandidates::errorText() const
{
    return m_failed ? AptUtils::tr("Apt error") : QString();
}

bool AptCandidates::lacksSources()
{
    QString output;
    return !m_asked.isEmpty() && m_prepared && !m_failed && !m_hasSources
           && run(AptCommands::AptCache, QStringList{QStringLiteral("policy")} + options(), {}, output)
           && AptOutput::sourceLines(output, SourceGrouping::BySuite).isEmpty();
}

bool AptCandidates::prepare(const StopRequest &stopped)
{
    if (m_prepared || m_failed)
        return !m_failed;
    QString output;
    if (!run(AptCommands::AptConfig,
             {QStringLiteral("shell"),
              QStringLiteral("ARCHITECTURE"),
              QStringLiteral("APT::Architecture"),
              QStringLiteral("CACHE"),
              QStringLiteral("Dir::Cache::pkgcache/f")},
             stopped,
             output))
        return false;
    QString known;
    if (!run(AptCommands::AptConfig,
             {QStringLiteral("dump"),
              QStringLiteral("--format"),
              QStringLiteral("%f %v%n"),
              QStringLiteral("APT::Architectures")},
             stopped,
             known))
        return false;
    m_prepared = true;
    m_architectures = dumpedValues(known);
    m_architecture = AptOutput::shellValue(output, QStringLiteral("ARCHITECTURE"));
    const QString cacheFile = AptOutput::shellValue(output, QStringLiteral("CACHE"));
    // Without a writable cache file, apt reads all lists again in every run. A private list must not change the
    // system's cache file.
    if (!m_sourceList.isEmpty() || cacheFile.isEmpty()
        || !QFileInfo(QFileInfo(cacheFile).path()).isWritable())
        m_cache = std::make_unique<ScratchFolder>();
    return true;
}

QStringList AptCandidates::options() const
{
    QStringList result = AptCommands::privateListOptions(m_sourceList);
    // Otherwise apt-cache reads an unknown name with a dot or plus as a pattern, and "a." matches nearly all packages.
    result << QStringLiteral("-o") << QStringLiteral("APT::Cmd::Pattern-Only=true");
    if (m_cache && m_cache->isValid()) {
        for (const auto *const file : {"pkgcache", "srcpkgcache"})
            result << QStringLiteral("-o")
                   << QStringLiteral("Dir::Cache::%1=%2")
                          .arg(QLatin1String(file), m_cache->filePath(QLatin1String(file)));
    }
    return result;
}

bool AptCandidates::ask(const QString &command,
                        const QStringList &words,
                        const StopRequest &stopped,
                        const Reader &reader)
{
    const QStringList settings = options();
    for (auto word = words.cbegin(); word != words.cend();) {
        if (stopped && stopped())
            return false;
        QStringList arguments{command};
        for (int length = 0; word != words.cend() && length < BatchLength; ++word) {
            arguments.append(*word);
            length += countOf(*word) + 1;
        }
        QString output;
        if (!run(AptCommands::AptCache, arguments + settings, stopped, output))
            return m_failed;
        reader(output);
    }
    return true;
}

bool AptCandidates::run(const QString &program,
                        const QStringList &arguments,
                        const StopRequest &stopped,
                        QString &output)
{
    ProcessCall call{program, arguments, {}, m_environment, -1};
    call.stopped = stopped;
    const ProcessResult result = runProcess(call);
    if (!result.succeeded()) {
        // A program that was killed because of a stop request has not failed.
        m_failed = !stopped || !stopped();
        m_errorDetail = result.errorOutput;
        return false;
    }
    output = result.output;
    return true;
}

void AptCandidates::readVersions(const QString &policy)
{
    const auto versions = AptPolicy::versions(policy);
    for (const AptPolicy::ListedVersion &listed : versions) {
        QString architecture = listed.package.section(QLatin1Char(':'), 1, 1);
        if (architecture.isEmpty())
            architecture = m_architecture;
        const PackageQuestion question{
            listed.package.section(QLatin1Char(':'), 0, 0), architecture, PackageType::Deb};
        for (const QString &origin : listed.origins) {
            m_hasSources = true;
            if (!m_accepts || m_accepts(origin))
                m_answers[question].append({origin, listed.version});
        }
    }
}
