// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the stored results of one repository.
#include "core/qtversions.h"
#include "core/stringpool.h"
#include "depends/dependsjson.h"
#include "depends/dependsjsonparts.h"
#include "depends/localcandidates.h"
#include "results/jsondevice.h"

#include <QSet>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace
{
using DependsJson::Outcome;
namespace Key = DependsJson::Key;
using Size = rapidjson::SizeType;

DependStatus toStatus(std::string_view number)
{
    // The usual numbers are compared as text, because parsing any number is slow.
    if (number.size() == 1 && (number[0] == '0' || number[0] == '1'))
        return number[0] == '1' ? DependSuccess : DependError;
    const double value = QByteArray(number.data(), static_cast<int>(number.size())).toDouble();
    if (qFuzzyIsNull(value))
        return DependError;
    return qFuzzyCompare(value, 1.0) ? DependSuccess : DependUndefined;
}

/** Sets the architecture of the dependency and its providers where none is stored. */
void setArchitecture(Dependency &dependency, const QString &architecture)
{
    if (dependency.architecture.isEmpty())
        dependency.architecture = architecture;
    // A loop over an empty map would allocate memory for it.
    if (dependency.providers.isEmpty())
        return;
    for (Dependency &provider : dependency.providers)
        setArchitecture(provider, dependency.architecture);
}

/** Sorts the groups by their keys and frees spare memory. Of several groups with one key, the last one counts. */
void sortGroups(QVector<DependencyGroup> &groups)
{
    const auto isOutOfOrder
        = [](const DependencyGroup &a, const DependencyGroup &b) { return !(a.key < b.key); };
    // We write them in their order.
    if (std::adjacent_find(groups.cbegin(), groups.cend(), isOutOfOrder) == groups.cend()) {
        groups.squeeze();
        return;
    }
    QMap<QString, DependencyGroup> byKey;
    for (const DependencyGroup &group : std::as_const(groups))
        byKey.insert(group.key, group);
    groups = sortedGroups(byKey);
}

/** A list of alternatives that can be a member of a set. */
struct Alternatives
{
    QVector<Dependency> list;

    friend bool operator==(const Alternatives &a, const Alternatives &b) { return a.list == b.list; }
    /** Hashes only the most distinctive fields; operator== compares the others. */
    friend QtVersions::HashValue qHash(const Alternatives &alternatives, QtVersions::HashValue seed)
    {
        for (const Dependency &dependency : alternatives.list)
            seed = qHash(dependency.name, seed) ^ (qHash(dependency.version, seed) * 31U);
        return seed;
    }
};

/** Handles the events of the parser and builds the results of the wanted repository. */
class ResultsHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, ResultsHandler>
{
public:
    ResultsHandler(const QString &repository, StoredPackages *stored)
        : m_repository(repository.toStdString())
        , m_stored(stored)
    { }

    bool hasRoot() const { return m_hasRoot; }

    bool Key(const char *text, Size size, bool /*copy*/)
    {
        m_key.assign(text, size);
        // When several members have the same name, the last one counts.
        if (m_places.back() == Place::Root && m_key == m_repository)
            m_stored->clear();
        return true;
    }

    bool StartObject() { return enter(objectIn(m_places.back())); }
    bool StartArray() { return enter(arrayIn(m_places.back())); }
    bool EndArray(Size /*count*/)
    {
        m_places.pop_back();
        return true;
    }
    bool EndObject(Size /*count*/);
    bool String(const char *text, Size size, bool /*copy*/);
    bool RawNumber(const char *text, Size size, bool /*copy*/);

private:
    /** The type of the object or array that the parser is in. */
    enum class Place : quint8 {
        Outside,
        Root,
        Repository,
        Package,
        Others,
        OtherPackage,
        Groups,
        Group,
        Alternatives,
        Dependency,
        Providers,
        Sources,
        Source,
        Ignored
    };

    const std::string m_repository;
    StoredPackages *m_stored;
    StringPool m_pool;
    /** One list for all equal lists: a few dependencies are those of thousands of packages. */
    QSet<Alternatives> m_alternatives;
    std::vector<Place> m_places{Place::Outside};
    std::string m_key;
    bool m_hasRoot = false;

    QString m_packageName;
    StoredDepends m_package; ///< the package that is being read
    DependsInfo m_info; ///< results for m_package; its groups are sorted at the end
    StoredDepends m_first; ///< the first package of the name, while one of the others is being read
    DependsInfo m_firstInfo;
    QVector<StoredDepends> m_others;
    DependencyGroup m_group;
    std::vector<::Dependency>
        m_dependencies; ///< the present alternative, followed by the present nested providers
    const QString m_local = LocalCandidates::label();
    QString m_sourceName;
    FoundVersion m_found;

    bool enter(Place place)
    {
        m_places.push_back(place);
        return m_hasRoot && m_places.size() <= ResultsDocument::maximumDepth;
    }
    Place objectIn(Place outer);
    Place arrayIn(Place outer);
    Place startDependency();
    void startPackage();
    void endPackage(Place place);
    static bool isPackage(Place place) { return place == Place::Package || place == Place::OtherPackage; }
};

ResultsHandler::Place ResultsHandler::objectIn(Place outer)
{
    // A missing status is read as 0, like every missing number.
    switch (outer) {
    case Place::Outside:
        m_hasRoot = true;
        return Place::Root;
    case Place::Root:
        return m_key == m_repository ? Place::Repository : Place::Ignored;
    case Place::Repository:
        m_packageName = m_pool.string(m_key);
        m_others.clear();
        startPackage();
        return Place::Package;
    case Place::Others:
        m_first = std::exchange(m_package, {});
        m_firstInfo = std::exchange(m_info, {});
        startPackage();
        return Place::OtherPackage;
    case Place::Package:
    case Place::OtherPackage:
        if (m_key != Key::dependMap)
            return Place::Ignored;
        m_info.groups.clear();
        return Place::Groups;
    case Place::Groups:
        m_group = {DependError, {}, false, m_pool.string(m_key)};
        return Place::Group;
    case Place::Alternatives:
    case Place::Providers:
        return startDependency();
    case Place::Dependency:
        if (m_key != Key::foundedVersions)
            return Place::Ignored;
        m_dependencies.back().foundVersions.clear();
        return Place::Sources;
    case Place::Sources:
        m_sourceName = m_key == Key::local ? m_local : m_pool.string(m_key);
        m_found = {QString(), DependError};
        return Place::Source;
    case Place::Group:
    case Place::Source:
    case Place::Ignored:
        break;
    }
    return Place::Ignored;
}

ResultsHandler::Place ResultsHandler::arrayIn(Place outer)
{
    if (outer == Place::Package && m_key == Key::others) {
        m_others.clear();
        return Place::Others;
    }
    if (outer == Place::Group && m_key == Key::packages) {
        m_group.alternatives.clear();
        return Place::Alternatives;
    }
    if (outer == Place::Dependency && m_key == Key::providers) {
        m_dependencies.back().providers.clear();
        return Place::Providers;
    }
    return Place::Ignored;
}

ResultsHandler::Place ResultsHandler::startDependency()
{
    m_dependencies.emplace_back();
    m_dependencies.back().status = DependError;
    return Place::Dependency;
}

void ResultsHandler::startPackage()
{
    m_package = {};
    m_info = {DependError, {}};
}

void ResultsHandler::endPackage(Place place)
{
    // Usually the architecture is not stored: dependencies are looked up for the architecture of their package.
    for (DependencyGroup &group : m_info.groups) {
        for (::Dependency &dependency : group.alternatives)
            setArchitecture(dependency, m_package.architecture);
        group.alternatives = m_alternatives.insert({group.alternatives})->list;
    }
    sortGroups(m_info.groups);
    m_package.info = QSharedPointer<DependsInfo>::create(std::exchange(m_info, {}));
    if (place == Place::OtherPackage) {
        m_others.append(m_package);
        m_package = std::exchange(m_first, {});
        m_info = std::exchange(m_firstInfo, {});
        return;
    }
    QVector<StoredDepends> packages;
    packages.reserve(1 + m_others.size());
    packages.append(m_package);
    packages += m_others;
    m_stored->insert(m_packageName, packages);
}

bool ResultsHandler::EndObject(Size /*count*/)
{
    const Place left = m_places.back();
    m_places.pop_back();
    if (isPackage(left)) {
        endPackage(left);
    } else if (left == Place::Group) {
        m_info.groups.append(std::exchange(m_group, {}));
    } else if (left == Place::Dependency) {
        const ::Dependency dependency = std::move(m_dependencies.back());
        m_dependencies.pop_back();
        if (m_places.back() == Place::Alternatives)
            m_group.alternatives.append(dependency);
        else
            m_dependencies.back().providers.insert(dependency.name, dependency);
    } else if (left == Place::Source) {
        m_dependencies.back().foundVersions.insert(m_sourceName, m_found);
    }
    return true;
}

bool ResultsHandler::String(const char *text, Size size, bool /*copy*/)
{
    const Place place = m_places.back();
    QString *target = nullptr;
    if (isPackage(place)) {
        if (m_key == Key::version)
            target = &m_package.version;
        else if (m_key == Key::architecture)
            target = &m_package.architecture;
        else if (m_key == Key::component)
            target = &m_package.component;
        else if (m_key == Key::type && std::string_view(text, size) == Key::udeb)
            m_package.type = PackageType::Udeb;
    } else if (place == Place::Group && m_key == Key::field) {
        m_group.isPreDepends = std::string_view(text, size) == Key::preDepends;
    } else if (place == Place::Dependency) {
        ::Dependency &dependency = m_dependencies.back();
        if (m_key == Key::name)
            target = &dependency.name;
        else if (m_key == Key::architecture)
            target = &dependency.architecture;
        else if (m_key == Key::op)
            target = &dependency.op;
        else if (m_key == Key::dependVersion)
            target = &dependency.version;
        else if (m_key == Key::altOp)
            target = &dependency.secondOp;
        else if (m_key == Key::altDependVersion)
            target = &dependency.secondVersion;
    } else if (place == Place::Source && m_key == Key::version) {
        target = &m_found.version;
    }
    if (target != nullptr)
        *target = m_pool.string({text, size});
    return true;
}

bool ResultsHandler::RawNumber(const char *text, Size size, bool /*copy*/)
{
    const Place place = m_places.back();
    DependStatus *target = nullptr;
    if (isPackage(place) && m_key == Key::dependsRepoType)
        m_info.selection = QByteArray(text, static_cast<int>(size)).toInt();
    else if (isPackage(place) && m_key == Key::dependsStatus)
        target = &m_info.status;
    else if (place == Place::Group && m_key == Key::dependStatus)
        target = &m_group.status;
    else if (place == Place::Dependency && m_key == Key::status)
        target = &m_dependencies.back().status;
    else if (place == Place::Source && m_key == Key::status)
        target = &m_found.status;
    if (target != nullptr)
        *target = toStatus({text, size});
    return true;
}
} // namespace

Outcome DependsJson::read(QIODevice *input, const QString &repository, StoredPackages *stored)
{
    stored->clear();
    JsonInput stream(input);
    ResultsHandler handler(repository, stored);
    rapidjson::Reader reader;
    const bool parsed = !reader.Parse<jsonParseFlags>(stream, handler).IsError();
    if (stream.hasFailed())
        return Outcome::Failed;
    return parsed && handler.hasRoot() ? Outcome::Done : Outcome::Broken;
}
