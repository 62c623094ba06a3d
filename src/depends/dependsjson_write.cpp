// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the results of one repository.
#include "depends/dependsjson.h"
#include "depends/dependsjsonparts.h"
#include "depends/localcandidates.h"
#include "results/jsonwriter.h"

#include <algorithm>

namespace
{
using DependsJson::Outcome;
namespace Key = DependsJson::Key;

/** Writes the member of a repository. */
class MemberWriter
{
public:
    explicit MemberWriter(JsonWriter &writer)
        : m_writer(writer)
    { }

    void repository(const QList<PackageInfoPtr> &packages);

private:
    JsonWriter &m_writer;
    const QString m_local = LocalCandidates::label();

    void key(std::string_view name) { m_writer.key(name); }
    template <typename Value>
    void member(std::string_view name, const Value &value)
    {
        m_writer.member(name, value);
    }
    /** Writes the members of a package. If other packages have its name, it also writes what distinguishes it. */
    void package(const PackageInfo &package, bool isOnlyOne);
    void group(const DependencyGroup &group, const QString &architecture);
    /** `architecture` is the default that a reader assumes. */
    void dependency(const Dependency &dependency, const QString &architecture);
};

void MemberWriter::repository(const QList<PackageInfoPtr> &packages)
{
    const DependsJson::NamedPackages byName = DependsJson::packagesByName(packages);
    m_writer.StartObject();
    for (const PackageInfoPtr &candidate : packages) {
        if (byName.first.value(candidate->name) != candidate)
            continue;
        m_writer.key(candidate->name);
        m_writer.StartObject();
        const auto others = byName.others.constFind(candidate->name);
        package(*candidate, others == byName.others.cend());
        if (others != byName.others.cend()) {
            key(Key::others);
            m_writer.StartArray();
            for (const PackageInfoPtr &other : *others) {
                m_writer.StartObject();
                package(*other, false);
                m_writer.EndObject();
            }
            m_writer.EndArray();
        }
        m_writer.EndObject();
    }
    m_writer.EndObject();
}

void MemberWriter::package(const PackageInfo &package, bool isOnlyOne)
{
    member(Key::version, package.version);
    member(Key::architecture, package.architecture);
    if (!isOnlyOne && !package.indexComponent.isEmpty())
        member(Key::component, package.indexComponent);
    if (!isOnlyOne && package.type == PackageType::Udeb)
        member(Key::type, Key::udeb);
    key(Key::dependMap);
    m_writer.StartObject();
    if (package.dependsInfo) {
        for (const DependencyGroup &entry : package.dependsInfo->groups) {
            m_writer.key(entry.key);
            group(entry, package.architecture);
        }
    }
    m_writer.EndObject();
    member(Key::dependsStatus, package.dependStatus());
    if (package.dependsInfo && package.dependsInfo->selection != 0) {
        key(Key::dependsRepoType);
        m_writer.Int(package.dependsInfo->selection);
    }
}

void MemberWriter::group(const DependencyGroup &group, const QString &architecture)
{
    m_writer.StartObject();
    member(Key::dependStatus, group.status);
    if (group.isPreDepends)
        member(Key::field, Key::preDepends);
    key(Key::packages);
    m_writer.StartArray();
    for (const Dependency &alternative : group.alternatives)
        dependency(alternative, architecture);
    m_writer.EndArray();
    m_writer.EndObject();
}

void MemberWriter::dependency(const Dependency &dependency, const QString &architecture)
{
    m_writer.StartObject();
    member(Key::name, dependency.name);
    const bool isElsewhere = !dependency.architecture.isEmpty() && dependency.architecture != architecture;
    if (isElsewhere)
        member(Key::architecture, dependency.architecture);
    member(Key::op, dependency.op);
    member(Key::dependVersion, dependency.version);
    member(Key::altOp, dependency.secondOp);
    member(Key::altDependVersion, dependency.secondVersion);
    key(Key::providers);
    m_writer.StartArray();
    for (const Dependency &provider : dependency.providers)
        this->dependency(provider, isElsewhere ? dependency.architecture : architecture);
    m_writer.EndArray();
    member(Key::status, dependency.status);
    key(Key::foundedVersions);
    m_writer.StartObject();
    const auto &sources = dependency.foundVersions;
    for (auto it = sources.cbegin(); it != sources.cend(); ++it) {
        if (it.key() == m_local)
            key(Key::local);
        else
            m_writer.key(it.key());
        m_writer.StartObject();
        member(Key::version, it.value().version);
        member(Key::status, it.value().status);
        m_writer.EndObject();
    }
    m_writer.EndObject();
    m_writer.EndObject();
}

bool isSame(const PackageInfo &a, const PackageInfo &b)
{
    return a.architecture == b.architecture && a.indexComponent == b.indexComponent && a.type == b.type;
}

/**
 * Adds a package to the others of its name, unless it is `first`. It replaces an earlier record of the same package.
 */
void keepOther(QVector<PackageInfoPtr> &others, const PackageInfoPtr &package, const PackageInfo &first)
{
    const auto isGone = [&](const PackageInfoPtr &other) {
        return isSame(*other, first) || (isSame(*other, *package) && package->hasDependsInfo());
    };
    others.erase(std::remove_if(others.begin(), others.end(), isGone), others.end());
    const bool isKnown = isSame(*package, first)
                         || std::any_of(others.cbegin(), others.cend(), [&](const PackageInfoPtr &other) {
                                return isSame(*other, *package);
                            });
    if (!isKnown)
        others.append(package);
}
} // namespace

ResultsDocument::Change DependsJson::documentChange(const Change &change)
{
    ResultsDocument::Change result{change.repository, change.newPath, nullptr};
    if (!change.packages.isEmpty())
        result.write = [&change](JsonWriter &writer) { MemberWriter(writer).repository(change.packages); };
    return result;
}

Outcome DependsJson::rewrite(QIODevice *input, QIODevice *output, const Change &change)
{
    return ResultsDocument::rewrite(input, output, documentChange(change), indent);
}

DependsJson::NamedPackages DependsJson::packagesByName(const QList<PackageInfoPtr> &packages)
{
    NamedPackages byName;
    byName.first.reserve(packages.size());
    for (const PackageInfoPtr &package : packages) {
        PackageInfoPtr &first = byName.first[package->name];
        const PackageInfoPtr earlier = first;
        const bool comesFirst = !earlier || package->hasDependsInfo() || !earlier->hasDependsInfo();
        if (comesFirst)
            first = package;
        if (!earlier)
            continue;
        QVector<PackageInfoPtr> &others = byName.others[package->name];
        keepOther(others, comesFirst ? earlier : package, *first);
        if (others.isEmpty())
            byName.others.remove(package->name);
    }
    return byName;
}
