// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/localcandidates.h"

#include "depends/dependsparser.h"

namespace
{
const QString AnyArchitecture = QStringLiteral("all");
}

LocalCandidates::LocalCandidates(const QList<PackageInfoPtr> &packages)
{
    m_packages.reserve(packages.size());
    for (const PackageInfoPtr &package : packages)
        m_packages.insert(package->name, package);
}

void LocalCandidates::add(const PackageInfoPtr &package)
{
    m_packages.insert(package->name, package);
    if (m_providersRead)
        addProvided(package);
}

QVector<PackageInfoPtr> LocalCandidates::find(const PackageQuestion &question) const
{
    return matching(m_packages, question);
}

void LocalCandidates::prefetch(const QVector<PackageQuestion> & /*questions*/,
                               const StopRequest & /*stopped*/)
{ }

QVector<Candidate> LocalCandidates::candidates(const PackageQuestion &question) const
{
    QVector<Candidate> result;
    const auto packages = find(question);
    for (const PackageInfoPtr &package : packages)
        result.append({m_label, package->version});
    return result;
}

void LocalCandidates::prefetchProviders(const QVector<PackageQuestion> &questions,
                                        const StopRequest & /*stopped*/)
{
    if (m_providersRead || questions.isEmpty())
        return;
    m_providersRead = true;
    for (const PackageInfoPtr &package : qAsConst(m_packages))
        addProvided(package);
}

QStringList LocalCandidates::providers(const PackageQuestion &question) const
{
    QStringList names;
    const auto packages = matching(m_providers, question);
    for (const PackageInfoPtr &package : packages) {
        if (!names.contains(package->name))
            names.append(package->name);
    }
    return names;
}

QVector<PackageInfoPtr> LocalCandidates::matching(const PackagesByName &packages,
                                                  const PackageQuestion &question)
{
    QVector<PackageInfoPtr> result;
    for (auto it = packages.constFind(question.name); it != packages.cend() && it.key() == question.name;
         ++it) {
        const PackageInfo &package = **it;
        if (package.type == question.type
            && (package.architecture == question.architecture || package.architecture == AnyArchitecture
                || question.architecture == AnyArchitecture))
            result.append(*it);
    }
    return result;
}

void LocalCandidates::addProvided(const PackageInfoPtr &package)
{
    std::string buffer;
    const auto field = unfoldedField(package->control.text(), "Provides", buffer);
    if (field.empty())
        return;
    // A Provides field is written like a Depends field without alternatives.
    const auto provided = DependsParser().entries(field, package->architecture);
    for (const DependencyGroup &entry : provided)
        m_providers.insert(entry.alternatives.first().name, package);
}
