// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/localcandidates.h"

#include "depends/dependsparser.h"

#include <algorithm>
#include <utility>

namespace
{
const QString AnyArchitecture = QStringLiteral("all");

bool serves(const PackageInfo &package, const PackageQuestion &question)
{
    return package.type == question.type
           && (package.architecture == question.architecture || package.architecture == AnyArchitecture
               || question.architecture == AnyArchitecture);
}
} // namespace

LocalCandidates::LocalCandidates(const QList<PackageInfoPtr> &packages)
{
    m_packages.reserve(packages.size());
    for (const PackageInfoPtr &package : packages)
        m_packages.insert(package->name, package);
}

bool LocalCandidates::meets(const Dependency &dependency)
{
    return dependency.foundVersions.value(label()).status == DependSuccess
           || std::any_of(dependency.providers.cbegin(), dependency.providers.cend(), meets);
}

QVector<PackageInfoPtr> LocalCandidates::find(const PackageQuestion &question) const
{
    QVector<PackageInfoPtr> result;
    for (auto it = m_packages.constFind(question.name); it != m_packages.cend() && it.key() == question.name;
         ++it) {
        if (serves(**it, question))
            result.append(*it);
    }
    return result;
}

bool LocalCandidates::prefetch(const QVector<PackageQuestion> & /*questions*/,
                               const StopRequest & /*stopped*/)
{
    return true;
}

QVector<Candidate> LocalCandidates::candidates(const PackageQuestion &question) const
{
    QVector<Candidate> result;
    const auto packages = find(question);
    for (const PackageInfoPtr &package : packages)
        result.append({m_label, package->version});
    return result;
}

bool LocalCandidates::prefetchProviders(const QVector<PackageQuestion> &questions,
                                        const StopRequest & /*stopped*/)
{
    if (m_providersRead || questions.isEmpty())
        return true;
    m_providersRead = true;
    DependsParser parser;
    for (const PackageInfoPtr &package : std::as_const(m_packages))
        addProvided(package, parser);
    return true;
}

QVector<Provider> LocalCandidates::providers(const PackageQuestion &question) const
{
    QVector<Provider> result;
    for (auto it = m_providers.constFind(question.name);
         it != m_providers.cend() && it.key() == question.name;
         ++it) {
        if (serves(*it->package, question))
            result.append({it->package->name, it->package->version, it->version});
    }
    return result;
}

void LocalCandidates::addProvided(const PackageInfoPtr &package, DependsParser &parser)
{
    std::string buffer;
    const auto field = unfoldedField(package->control.text(), "Provides", buffer);
    if (field.empty())
        return;
    // A Provides field has the form of a Depends field without alternatives.
    const auto provided = parser.entries(field, package->architecture);
    for (const DependencyGroup &entry : provided)
        m_providers.insert(entry.alternatives.first().name, {package, entry.alternatives.first().version});
}
