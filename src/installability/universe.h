// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/controltext.h"
#include "core/installabilityinfo.h"
#include "installability/installsystem.h"
#include "installability/multiarch.h"

#include <string_view>
#include <unordered_map>
#include <vector>

struct RelationText;

/** A piece of a vector that stands in another vector. */
template <typename T>
class Span
{
public:
    Span(const T *first, const T *last)
        : m_first(first)
        , m_last(last)
    { }
    const T *begin() const { return m_first; }
    const T *end() const { return m_last; }
    int size() const { return static_cast<int>(m_last - m_first); }
    bool isEmpty() const { return m_first == m_last; }
    const T &operator[](int index) const { return m_first[index]; }

private:
    const T *m_first;
    const T *m_last;
};

/** The fields of a package that decide on its installing; each points into the package's paragraph. */
struct PackageFields
{
    std::string_view package;
    std::string_view version;
    std::string_view architecture;
    std::string_view multiArch;
    std::string_view essential;
    std::string_view provides;
    std::string_view preDepends;
    std::string_view depends;
    std::string_view recommends;
    std::string_view conflicts;
    std::string_view breaks;
};

/**
 * All packages that can be installed on one system, and what their relations mean there: each entry of a dependency is
 * the set of the packages that meet it, and each entry of Conflicts and Breaks the set of the packages that it
 * excludes. Equal entries share their set. Packages are known by their index. After finish() nothing changes, and any
 * thread may read.
 */
class Universe
{
public:
    enum Role : quint8 {
        Checked, ///< of the repository
        Offered ///< only of the base
    };
    /** The relations of a package. Pre-Depends come before Depends, and Conflicts before Breaks. */
    enum Field : quint8 { PreDepends, Depends, Recommends, Conflicts, Breaks };
    /** One entry of a field: the number of its set, and the field. */
    struct Entry
    {
        int set = 0;
        Field field = Depends;
    };
    using Members = Span<int>;
    using Entries = Span<Entry>;

    explicit Universe(const InstallSystem &system);

    /**
     * Adds a package and returns its index; -1 when it is not for this system or has no name. A package of the same
     * name, version and architecture, "all" and the native one being the same, is known already: its index is returned
     * and the paragraph ignored. Therefore add the checked packages before the offered ones.
     */
    int add(const ControlText &paragraph, Role role);
    /**
     * Reads the relations, after the last add(). Recommends are read of checked packages only. False after a stop: the
     * universe is not complete then, and must not be used.
     */
    bool finish(const StopRequest &stopped = {});

    /** Whether sets were left empty because all of them would take gigabytes, as hostile packages can want. */
    bool isTooLarge() const { return m_isTooLarge; }

    int count() const { return static_cast<int>(m_packages.size()); }
    std::string_view name(int package) const { return at(package).name; }
    std::string_view version(int package) const { return at(package).version; }
    /** The architecture that the package was built for; can be "all". */
    std::string_view architecture(int package) const { return at(package).architecture; }
    Role role(int package) const { return at(package).role; }
    bool isEssential(int package) const { return at(package).essential; }
    const ArchitectureTraits &traits(int package) const { return at(package).traits; }
    const ControlText &paragraph(int package) const { return at(package).paragraph; }
    NamedPackage named(int package) const;

    /** What must be installed beside the package: the entries of Pre-Depends and Depends. */
    Entries needs(int package) const { return entriesOf(at(package).needs, at(package).recommends); }
    Entries recommends(int package) const { return entriesOf(at(package).recommends, at(package).excludes); }
    /** What must not be installed beside the package: the entries of Conflicts and Breaks. */
    Entries excludes(int package) const { return entriesOf(at(package).excludes, at(package).end); }
    /** The packages of a set, by rising index. That of an exclusion can hold packages of the excluding one's name. */
    Members members(int set) const;
    int setCount() const { return static_cast<int>(m_sets.size()); }
    /** The entry as it is written. */
    std::string_view text(int set) const { return m_sets[static_cast<std::size_t>(set)].text; }

    /** The packages of the same name, by rising index: of these, few can be installed together. */
    Members namesakes(int package) const;
    /** The number of the package's name. */
    int nameId(int package) const { return at(package).nameId; }
    int nameCount() const { return static_cast<int>(m_names.size()); }
    /** The essential packages, those of one name together: one of each name is on every system. */
    const std::vector<std::vector<int>> &essential() const { return m_essential; }
    /** Of these, those with the name of this package, which is one of them. */
    const std::vector<int> &essential(int package) const;
    /** Whether two packages of one name can be installed together. */
    bool areCoInstallable(int a, int b) const;
    /** The members of a needed set, in the order in which apt would take one: as written, and the newest first. */
    std::vector<int> byPreference(int set) const;
    /** The packages whose name is the first one of the entry, the newest first, whether they meet it or not. */
    std::vector<int> namedIn(int set) const;

private:
    struct Package
    {
        ControlText paragraph;
        std::string_view name;
        std::string_view version;
        std::string_view architecture;
        int nameId = 0;
        int needs = 0; ///< first entry
        int recommends = 0;
        int excludes = 0;
        int end = 0; ///< behind the last entry
        ArchitectureTraits traits;
        Role role = Checked;
        bool essential = false;
    };
    struct Set
    {
        std::string_view text;
        int begin = 0;
        int end = 0;
    };
    /** A name that a package has or provides. */
    struct Offer
    {
        int package = 0;
        bool provided = false;
        std::string_view version; ///< can be empty when it is provided
        ArchitectureTraits traits;
    };
    /** An entry with all that decides on its meaning. */
    struct EntryKey
    {
        std::string_view text;
        int context = 0;
        bool operator==(const EntryKey &other) const
        {
            return context == other.context && text == other.text;
        }
    };
    struct EntryHash
    {
        std::size_t operator()(const EntryKey &key) const
        {
            return std::hash<std::string_view>()(key.text) ^ static_cast<std::size_t>(key.context + 1);
        }
    };

    std::vector<std::string> m_architectures; ///< the native one first
    std::vector<Package> m_packages;
    std::vector<Entry> m_entries;
    std::vector<Set> m_sets;
    std::vector<int> m_members;
    bool m_isTooLarge = false;
    std::unordered_map<std::string_view, int> m_names;
    std::vector<int> m_nameFirst; ///< by name: the first of its packages in m_namesakes
    std::vector<int> m_namesakes;
    std::vector<std::vector<int>> m_essential;
    // Only until the relations are read.
    std::vector<PackageFields> m_fields;
    std::vector<std::vector<Offer>> m_offers; ///< by name
    std::unordered_map<EntryKey, int, EntryHash> m_known;

    const Package &at(int package) const { return m_packages[static_cast<std::size_t>(package)]; }
    Entries entriesOf(int first, int last) const
    {
        return {m_entries.data() + first, m_entries.data() + last};
    }
    int nameOf(std::string_view name);
    int findName(std::string_view name) const;
    int architectureOf(std::string_view architecture) const;
    int qualifierOf(std::string_view qualifier) const;
    void groupNamesakes();
    void readOffers();
    void readProvided(int package, std::string_view field);
    void readEntries(std::string_view field, int context, Field kind);
    int setOf(std::string_view text, int context);
    void addMatches(const RelationText &relation, int context, bool excluding);
};
