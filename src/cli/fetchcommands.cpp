// SPDX-License-Identifier: GPL-3.0-or-later
// Packages that come from apt's sources.
#include "apt/addedsources.h"
#include "apt/aptcommands.h"
#include "apt/aptutils.h"
#include "apt/versionorder.h"
#include "cli/commands.h"
#include "cli/dryrun.h"
#include "cli/invocation.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/stopsignal.h"
#include "core/countof.h"
#include "core/settingskeys.h"
#include "depends/dependencylacks.h"
#include "engine/preview/previewrequest.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QSet>
#include <QSettings>

#include <algorithm>

namespace
{
/** NAME or NAME=VERSION. */
struct Wish
{
    QString word;
    QString name; ///< empty when the word names no package
    QString version; ///< empty: the greatest

    explicit Wish(const QString &given)
        : word(given)
        , version(given.section(QLatin1Char('='), 1))
    {
        if (AptCommands::isPackageName(given.section(QLatin1Char('='), 0, 0)))
            name = given.section(QLatin1Char('='), 0, 0);
    }
};

/** Fetches the lists of the sources that the user added, when it is time. */
void refresh(AddedSources *sources, Console &console)
{
    sources->settle(&StopSignal::isRaised);
    PrivateApt *apt = sources->apt();
    if (apt == nullptr)
        return;
    PrivateApt::Outcome outcome;
    outcome.problems = apt->lastProblems();
    if (apt->isDue()) {
        const QString job = QCoreApplication::translate("cli", "Fetching the lists of your own sources");
        outcome = apt->fetch(&StopSignal::isRaised, [&](int percent) { console.progress(job, percent); });
        console.endProgress();
    }
    for (const QString &problem : outcome.problems)
        console.error(QStringLiteral("warning"), problem, outcome.details);
}

/** What apt's sources, and those that the user added, offer of the wanted packages. */
class Offers
{
public:
    Offers(const QVector<Wish> &wishes, const QStringList &architectures, Console &console)
    {
        QSettings settings;
        m_repos = ExternalRepos::load(settings);
        QStringList names;
        for (const Wish &wish : wishes) {
            if (wish.name.isEmpty())
                continue;
            // Under its name alone apt knows what is for all architectures.
            names.append(wish.name);
            for (const QString &architecture : architectures)
                names.append(wish.name + QLatin1Char(':') + architecture);
        }
        names.removeDuplicates();
        AptUtils apt;
        ask(names, &apt);
        AddedSources added(m_repos, architectures);
        refresh(&added, console);
        if (!added.environment().isEmpty()) {
            AptUtils further;
            further.setEnvironment(added.environment());
            ask(names, &further);
        }
        if (m_records.isEmpty() && !apt.lastErrorText().isEmpty() && !StopSignal::isRaised())
            console.error(QStringLiteral("apt"), apt.lastErrorText(), apt.lastErrorDetails());
    }

    /** Nothing when no source has it. */
    std::optional<PackageInfo> best(const Wish &wish, const QString &architecture) const
    {
        std::optional<PackageInfo> best;
        for (const AptPackageRecord &record : m_records) {
            if (record.name != wish.name || record.architecture != architecture
                || (!wish.version.isEmpty() && record.version != wish.version)
                || !m_repos.isOriginAsked(record.repository)
                || (best && VersionOrder::compare(record.version, best->version) <= 0))
                continue;
            best = PackageInfo();
            best->name = record.name;
            best->version = record.version;
            best->architecture = architecture;
            best->repository = record.repository;
        }
        return best;
    }

private:
    ExternalRepos m_repos;
    QVector<AptPackageRecord> m_records;

    void ask(const QStringList &names, AptUtils *apt)
    {
        constexpr int NamesPerRun = 250;
        apt->setStopRequest(&StopSignal::isRaised);
        for (int first = 0; first < names.size() && !StopSignal::isRaised(); first += NamesPerRun)
            m_records += apt->packageRecords(names.mid(first, NamesPerRun));
    }
};

/** Those whose old versions are still there. */
QVector<UpgradablePackage> stillThere(const QVector<UpgradablePackage> &offers, const RepoShell &shell)
{
    QSet<QString> present;
    const auto place
        = [](const auto &name, const auto &architecture, const auto &component, const auto &version) {
              return QStringList{name, architecture, component, version}.join(QLatin1Char(' '));
          };
    for (const PackageInfoPtr &package : shell.packages())
        present.insert(
            place(package->name, package->architecture, package->indexComponent, package->version));
    QVector<UpgradablePackage> rest;
    std::copy_if(
        offers.cbegin(), offers.cend(), std::back_inserter(rest), [&](const UpgradablePackage &offer) {
            return present.contains(place(offer.name, offer.architecture, offer.component, offer.oldVersion));
        });
    return rest;
}

bool holds(const QList<PackageInfoPtr> &packages, const PackageInfo &wanted)
{
    return std::any_of(packages.cbegin(), packages.cend(), [&wanted](const PackageInfoPtr &package) {
        return package->name == wanted.name && package->architecture == wanted.architecture
               && package->version == wanted.version;
    });
}

/** Fetches what the packages depend on and the repository lacks, and what that depends on. */
ExitCode fetchDependencies(const QList<PackageInfoPtr> &first, RepositorySession *session)
{
    RepoShell &shell = session->shell();
    shell.setDependsRepoType(DependsEverywhere);
    QSet<QString> asked;
    QList<PackageInfoPtr> packages = first;
    ExitCode worst = ExitCode::Done;
    while (!packages.isEmpty() && worst <= ExitCode::Findings) {
        session->run([&] { shell.checkDepends(packages); });
        worst = std::max(worst, session->exitCode(true));
        QVector<Dependency> lacks;
        for (const Dependency &lack : DependencyLacks::of(session->checked())) {
            const QString key = lack.name + QLatin1Char(':') + lack.architecture;
            if (!asked.contains(key))
                lacks.append(lack);
            asked.insert(key);
        }
        if (lacks.isEmpty() || worst > ExitCode::Findings)
            break;
        const auto before = shell.packages();
        const QSet<PackageInfoPtr> known(before.cbegin(), before.cend());
        const int added = countOf(session->added());
        session->run([&] { shell.addDependencies(lacks, session->addOptions()); });
        worst = std::max(worst, session->exitCode(true));
        packages = session->added().mid(added);
    }
    return worst;
}

/** The sources in which newer versions are looked for; empty when the command line names a bad one, which is told. */
QStringList sourcesToAsk(const Invocation &invocation, Console &console)
{
    QStringList sources;
    for (const QString &word : invocation.values("from")) {
        const QString source = ExternalRepos::normalised(word);
        const QString refusal = ExternalRepos::refusal(source);
        if (!refusal.isEmpty()) {
            console.error(QStringLiteral("usage"), refusal, word);
            return {};
        }
        sources.append(source);
    }
    if (invocation.has("from"))
        return sources;
    QSettings settings;
    ExternalRepos repos = ExternalRepos::load(settings);
    AptUtils apt;
    apt.setStopRequest(&StopSignal::isRaised);
    repos.merge(apt.sourcesFromPolicy());
    for (const ExternalRepos::Entry &entry : repos.entries()) {
        if (entry.isAsked())
            sources.append(entry.source);
    }
    if (sources.isEmpty() && !StopSignal::isRaised())
        console.error(QStringLiteral("apt"), AptUtils::noSourcesText(), apt.lastErrorDetails());
    return sources;
}

void tellOffers(const QVector<UpgradablePackage> &packages, Console &console)
{
    QJsonArray array;
    for (const UpgradablePackage &package : packages) {
        console.line(QCoreApplication::translate("cli", "%1 %2: %3 instead of %4, from %5")
                         .arg(package.name,
                              package.architecture,
                              package.newVersion,
                              package.oldVersion,
                              package.source));
        array.append(QJsonObject{{QStringLiteral("package"), package.name},
                                 {QStringLiteral("architecture"), package.architecture},
                                 {QStringLiteral("component"), package.component},
                                 {QStringLiteral("version"), package.oldVersion},
                                 {QStringLiteral("newVersion"), package.newVersion},
                                 {QStringLiteral("source"), package.source}});
    }
    console.object({{QStringLiteral("upgradable"), array}});
}
} // namespace

ExitCode Commands::fetch(const Invocation &invocation, Console &console)
{
    if (invocation.has("missing") && invocation.has("with-depends")) {
        console.error(QStringLiteral("usage"),
                      QCoreApplication::translate(
                          "cli", "--missing brings all that is needed, without --with-depends."));
        return ExitCode::Usage;
    }
    if (invocation.has("missing"))
        return fetchMissing(invocation, console);
    if (invocation.others().isEmpty()) {
        console.error(QStringLiteral("usage"),
                      QCoreApplication::translate("cli", "Name the packages to fetch, or give --missing."));
        return ExitCode::Usage;
    }
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    QVector<Wish> wishes;
    for (const QString &word : invocation.others())
        wishes.append(Wish(word));
    const QStringList architectures = session.shell().repoInfo().binaryArchitectures();
    const Offers offers(wishes, architectures, console);
    if (StopSignal::isRaised())
        return ExitCode::Stopped;
    int unknown = 0;
    for (const Wish &wish : wishes) {
        const bool isOffered
            = std::any_of(architectures.cbegin(), architectures.cend(), [&](const QString &architecture) {
                  return offers.best(wish, architecture).has_value();
              });
        if (isOffered)
            continue;
        ++unknown;
        console.error(QStringLiteral("unknown"),
                      QCoreApplication::translate("cli", "No source of apt offers %1.").arg(wish.word));
    }
    if (unknown == wishes.size())
        return ExitCode::Failed;
    ExitCode worst = unknown > 0 ? ExitCode::Findings : ExitCode::Done;
    const AddOptions options = session.addOptions();
    PreviewRequest request;
    request.kind = ChangePreview::Fetch;
    request.options = options;
    QList<PackageInfo> wanted;
    for (const QString &architecture : architectures) {
        // A file for all architectures is in for this one, too, since it was fetched for another.
        QList<PackageInfo> missing;
        for (const Wish &wish : wishes) {
            const auto best = offers.best(wish, architecture);
            if (!best)
                continue;
            wanted.append(*best);
            if (!holds(session.shell().packages(), *best))
                missing.append(*best);
        }
        request.wanted += missing;
        if (missing.isEmpty() || worst >= ExitCode::Locked || invocation.has("dry-run"))
            continue;
        session.run([&] { session.shell().downloadPackages(missing, options); });
        worst = std::max(worst, session.exitCode());
    }
    if (invocation.has("dry-run")) {
        if (invocation.has("with-depends"))
            console.remark(QCoreApplication::translate(
                "cli", "The preview is without the packages on which these depend."));
        return std::max(worst, DryRun::show(session, console, request));
    }
    if (invocation.has("with-depends") && worst < ExitCode::Locked) {
        QList<PackageInfoPtr> present;
        for (const PackageInfoPtr &package : session.shell().packages()) {
            if (std::any_of(wanted.cbegin(), wanted.cend(), [&](const PackageInfo &other) {
                    return holds({package}, other);
                }))
                present.append(package);
        }
        worst = std::max(worst, fetchDependencies(present, &session));
    }
    session.tellChanges();
    const bool isAnyIn = !session.added().isEmpty() || !session.replaced().isEmpty();
    return worst == ExitCode::Failed && isAnyIn ? ExitCode::Findings : worst;
}

ExitCode Commands::upgrade(const Invocation &invocation, Console &console)
{
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    const QStringList sources = sourcesToAsk(invocation, console);
    if (sources.isEmpty())
        return StopSignal::isRaised()   ? ExitCode::Stopped
               : invocation.has("from") ? ExitCode::Usage
                                        : ExitCode::Failed;
    RepoShell &shell = session.shell();
    const bool isAsked = session.run([&] { shell.prepareUpgrade(sources); }) == RepoEnums::SUCCESS;
    const ExitCode prepared = session.exitCode(isAsked);
    if (!isAsked)
        return prepared;
    const auto packages = shell.upgradablePackages();
    if (invocation.has("list")) {
        tellOffers(packages, console);
        return prepared;
    }
    if (invocation.has("dry-run")) {
        PreviewRequest request;
        request.kind = ChangePreview::Upgrade;
        request.upgrades = stillThere(packages, shell);
        request.options = session.addOptions();
        return std::max(prepared, DryRun::show(session, console, request));
    }
    ExitCode code = prepared;
    if (!packages.isEmpty()) {
        session.run([&] { shell.upgradeRepo(stillThere(packages, shell), session.addOptions()); });
        code = std::max(prepared, session.exitCode());
    }
    session.tellChanges();
    return code;
}
