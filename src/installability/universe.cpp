// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/universe.h"

#include "apt/versionorder.h"
#include "core/relationtext.h"
#include "core/trimmed.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{
/** In all sets. A distribution has some hundred thousand. */
constexpr std::size_t MostMembers = 50'000'000;

/** The context of an entry that excludes: it means the same in packages of every architecture. */
constexpr int Excluding = -1;

struct FieldName
{
    std::string_view name;
    std::string_view PackageFields::*value;
};

constexpr std::array<FieldName, 11> FieldNames{{{"Package", &PackageFields::package},
                                                {"Version", &PackageFields::version},
                                                {"Architecture", &PackageFields::architecture},
                                                {"Multi-Arch", &PackageFields::multiArch},
                                                {"Essential", &PackageFields::essential},
                                                {"Provides", &PackageFields::provides},
                                                {"Pre-Depends", &PackageFields::preDepends},
                                                {"Depends", &PackageFields::depends},
                                                {"Recommends", &PackageFields::recommends},
                                                {"Conflicts", &PackageFields::conflicts},
                                                {"Breaks", &PackageFields::breaks}}};

/** The end of the field that begins at `begin`: its line and the lines that continue it. */
std::size_t fieldEnd(std::string_view text, std::size_t begin)
{
    auto end = text.find('\n', begin);
    while (end != std::string_view::npos && end + 1 < text.size()
           && (text[end + 1] == ' ' || text[end + 1] == '\t'))
        end = text.find('\n', end + 1);
    return std::min(end, text.size());
}

/** Reads all fields in one pass; of a field that stands twice, the first counts, as everywhere in this program. */
PackageFields readFields(std::string_view text)
{
    PackageFields fields;
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = fieldEnd(text, begin);
        const auto field = text.substr(begin, end - begin);
        for (const FieldName &known : FieldNames) {
            if (field.size() > known.name.size() && field[known.name.size()] == ':'
                && field.front() == known.name.front() && field.substr(0, known.name.size()) == known.name) {
                if ((fields.*known.value).data() == nullptr)
                    fields.*known.value = trimmed(field.substr(known.name.size() + 1));
                break;
            }
        }
        begin = end + 1;
    }
    return fields;
}

QString decoded(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}
} // namespace

Universe::Universe(const InstallSystem &system)
{
    m_architectures.push_back(system.native.toStdString());
    for (const QString &architecture : system.foreign)
        m_architectures.push_back(architecture.toStdString());
}

int Universe::add(const ControlText &paragraph, Role role)
{
    const PackageFields fields = readFields(paragraph.text());
    Package package;
    package.paragraph = paragraph;
    package.name = fields.package;
    package.version = fields.version;
    package.architecture = fields.architecture;
    package.traits.architecture
        = fields.architecture == "all" ? Architecture::Native : architectureOf(fields.architecture);
    if (package.name.empty() || package.traits.architecture == Architecture::Unknown)
        return -1;
    package.traits.multiArch = multiArchOf(fields.multiArch);
    // A package for all architectures cannot be there twice.
    if (fields.architecture == "all" && package.traits.multiArch == MultiArch::Same)
        package.traits.multiArch = MultiArch::No;
    package.essential = fields.essential == "yes" || fields.essential == "Yes" || fields.essential == "true";
    package.role = role;
    package.nameId = nameOf(package.name);
    for (const Offer &offer : m_offers[static_cast<std::size_t>(package.nameId)]) {
        const Package &known = at(offer.package);
        if (known.version == package.version && known.traits.architecture == package.traits.architecture)
            return offer.package;
    }
    const int index = count();
    m_offers[static_cast<std::size_t>(package.nameId)].push_back(
        {index, false, package.version, package.traits});
    m_packages.push_back(package);
    m_fields.push_back(fields);
    return index;
}

bool Universe::finish(const StopRequest &stopped)
{
    groupNamesakes();
    readOffers();
    for (int index = 0; index < count(); ++index) {
        if (stopped && stopped())
            return false;
        Package &package = m_packages[static_cast<std::size_t>(index)];
        const PackageFields &fields = m_fields[static_cast<std::size_t>(index)];
        const int own = package.traits.architecture;
        package.needs = static_cast<int>(m_entries.size());
        readEntries(fields.preDepends, own, PreDepends);
        readEntries(fields.depends, own, Depends);
        package.recommends = static_cast<int>(m_entries.size());
        if (package.role == Checked)
            readEntries(fields.recommends, own, Recommends);
        package.excludes = static_cast<int>(m_entries.size());
        readEntries(fields.conflicts, Excluding, Conflicts);
        readEntries(fields.breaks, Excluding, Breaks);
        package.end = static_cast<int>(m_entries.size());
    }
    m_fields = {};
    m_offers = {};
    m_known = {};
    return true;
}

NamedPackage Universe::named(int package) const
{
    return {decoded(name(package)),
            decoded(version(package)),
            decoded(architecture(package)),
            role(package) == Checked};
}

Universe::Members Universe::members(int set) const
{
    const Set &found = m_sets[static_cast<std::size_t>(set)];
    return {m_members.data() + found.begin, m_members.data() + found.end};
}

Universe::Members Universe::namesakes(int package) const
{
    const auto name = static_cast<std::size_t>(nameId(package));
    return {m_namesakes.data() + m_nameFirst[name], m_namesakes.data() + m_nameFirst[name + 1]};
}

const std::vector<int> &Universe::essential(int package) const
{
    return *std::find_if(m_essential.begin(), m_essential.end(), [&](const std::vector<int> &versions) {
        return nameId(versions.front()) == nameId(package);
    });
}

bool Universe::areCoInstallable(int a, int b) const
{
    // Versions are compared last, because that takes the longest.
    return ::areCoInstallable(traits(a), traits(b), true)
           && VersionOrder::compare(version(a), version(b)) == 0;
}

std::vector<int> Universe::byPreference(int set) const
{
    std::vector<int> names;
    std::string_view rest = text(set);
    while (!rest.empty()) {
        RelationText relation;
        if (readRelation(takePiece(rest, '|'), relation))
            names.push_back(findName(relation.name));
    }
    // Packages that only provide a name come behind those that have one of the names.
    const auto place
        = [&](int package) { return std::find(names.begin(), names.end(), nameId(package)) - names.begin(); };
    const auto found = members(set);
    std::vector<int> result(found.begin(), found.end());
    std::stable_sort(result.begin(), result.end(), [&](int a, int b) {
        const auto placeA = place(a);
        const auto placeB = place(b);
        return placeA != placeB ? placeA < placeB : VersionOrder::compare(version(a), version(b)) > 0;
    });
    return result;
}

std::vector<int> Universe::namedIn(int set) const
{
    RelationText relation;
    std::string_view rest = text(set);
    std::vector<int> result;
    const int name = readRelation(takePiece(rest, '|'), relation) ? findName(relation.name) : -1;
    if (name < 0 || static_cast<std::size_t>(name) + 1 >= m_nameFirst.size())
        return result;
    const auto first = static_cast<std::size_t>(name);
    result.assign(m_namesakes.begin() + m_nameFirst[first], m_namesakes.begin() + m_nameFirst[first + 1]);
    std::stable_sort(result.begin(), result.end(), [this](int a, int b) {
        return VersionOrder::compare(version(a), version(b)) > 0;
    });
    return result;
}

int Universe::nameOf(std::string_view name)
{
    const auto [known, isNew] = m_names.emplace(name, static_cast<int>(m_names.size()));
    if (isNew)
        m_offers.emplace_back();
    return known->second;
}

int Universe::findName(std::string_view name) const
{
    const auto known = m_names.find(name);
    return known == m_names.end() ? -1 : known->second;
}

int Universe::architectureOf(std::string_view architecture) const
{
    const auto known = std::find(m_architectures.begin(), m_architectures.end(), architecture);
    return known == m_architectures.end() ? Architecture::Unknown
                                          : static_cast<int>(known - m_architectures.begin());
}

int Universe::qualifierOf(std::string_view qualifier) const
{
    if (qualifier.empty())
        return Architecture::Implicit;
    if (qualifier == "any")
        return Architecture::Any;
    return qualifier == "native" ? Architecture::Native : architectureOf(qualifier);
}

void Universe::groupNamesakes()
{
    m_nameFirst.assign(m_offers.size() + 1, 0);
    for (const Package &package : m_packages)
        ++m_nameFirst[static_cast<std::size_t>(package.nameId) + 1];
    for (std::size_t name = 1; name < m_nameFirst.size(); ++name)
        m_nameFirst[name] += m_nameFirst[name - 1];
    m_namesakes.resize(m_packages.size());
    std::vector<int> next = m_nameFirst;
    for (int index = 0; index < count(); ++index)
        m_namesakes[static_cast<std::size_t>(next[static_cast<std::size_t>(nameId(index))]++)] = index;
    for (std::size_t name = 0; name + 1 < m_nameFirst.size(); ++name) {
        std::vector<int> versions;
        std::copy_if(m_namesakes.begin() + m_nameFirst[name],
                     m_namesakes.begin() + m_nameFirst[name + 1],
                     std::back_inserter(versions),
                     [this](int package) { return isEssential(package); });
        if (!versions.empty())
            m_essential.push_back(std::move(versions));
    }
}

void Universe::readOffers()
{
    for (int index = 0; index < count(); ++index)
        readProvided(index, m_fields[static_cast<std::size_t>(index)].provides);
}

void Universe::readProvided(int package, std::string_view field)
{
    while (!field.empty()) {
        RelationText provided;
        if (!readRelation(takePiece(field, ','), provided))
            continue;
        // dpkg knows "=" only in Provides, and ignores what is provided with another operator.
        if (!provided.op.empty() && provided.op != "=")
            continue;
        ArchitectureTraits offered = traits(package);
        // What is provided for another architecture than the package's own is there for that one alone.
        if (const int qualifier = qualifierOf(provided.qualifier); qualifier != Architecture::Implicit)
            offered = {qualifier, MultiArch::No};
        if (offered.architecture >= 0)
            m_offers[static_cast<std::size_t>(nameOf(provided.name))].push_back(
                {package, true, provided.version, offered});
    }
}

void Universe::readEntries(std::string_view field, int context, Field kind)
{
    while (!field.empty()) {
        const auto text = trimmed(takePiece(field, ','));
        if (!text.empty())
            m_entries.push_back({setOf(text, context), kind});
    }
}

int Universe::setOf(std::string_view text, int context)
{
    const auto [known, isNew] = m_known.emplace(EntryKey{text, context}, setCount());
    if (!isNew)
        return known->second;
    const auto begin = m_members.size();
    m_isTooLarge = m_isTooLarge || begin > MostMembers;
    std::string_view rest = text;
    while (!rest.empty() && !m_isTooLarge) {
        RelationText relation;
        if (readRelation(takePiece(rest, '|'), relation))
            addMatches(relation, context, context == Excluding);
    }
    const auto first = m_members.begin() + static_cast<std::ptrdiff_t>(begin);
    std::sort(first, m_members.end());
    m_members.erase(std::unique(first, m_members.end()), m_members.end());
    m_sets.push_back({text, static_cast<int>(begin), static_cast<int>(m_members.size())});
    return known->second;
}

void Universe::addMatches(const RelationText &relation, int context, bool excluding)
{
    const int name = findName(relation.name);
    if (name < 0)
        return;
    const int qualifier = qualifierOf(relation.qualifier);
    for (const Offer &offer : m_offers[static_cast<std::size_t>(name)]) {
        const bool concerns = excluding ? architectureExcludes(qualifier, offer.traits)
                                        : architectureMeets(context, qualifier, offer.traits);
        if (!concerns)
            continue;
        // What is provided without a version meets no constraint on versions.
        if (relation.op.empty()
            || (!(offer.provided && offer.version.empty())
                && VersionOrder::holds(offer.version, relation.op, relation.version)))
            m_members.push_back(offer.package);
    }
}
