// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/madepackages.h"

#include <algorithm>
#include <random>
#include <set>
#include <tuple>

namespace
{
const char *const Names[] = {"Pre-Depends", "Depends", "Conflicts", "Breaks", "Provides"};

/** No two of them are equal versions. */
const char *const Versions[]
    = {"1", "1.0-1", "1.0-2+b1", "2~rc1", "2", "2+dfsg-1", "10", "1:0.5", "1:0.5-1~bpo"};

/** Makes one repository. */
class Maker
{
public:
    Maker(unsigned seed, bool twoArchitectures)
        : m_random(seed)
        , m_two(twoArchitectures)
        , m_names(3 + below(25))
        , m_virtualNames(1 + below(5))
        , m_excluding(below(40))
        , m_lacking(below(5))
    { }

    MadePackages make()
    {
        const int count = 5 + below(56);
        for (int i = 0; i < 4 * count && static_cast<int>(m_packages.size()) < count; ++i)
            addPackage();
        for (MadePackage &package : m_packages)
            addRelations(package);
        for (int i = below(3); i > 0; --i)
            addCycle();
        if (percent(40))
            addClique();
        if (percent(30)) {
            for (int i = 1 + below(3); i > 0; --i)
                any().essential = true;
        }
        avoidFaultsOfTheJudge();
        return std::move(m_packages);
    }

private:
    std::mt19937 m_random;
    bool m_two;
    int m_names;
    int m_virtualNames;
    int m_excluding; ///< how many of a hundred packages exclude others
    int m_lacking; ///< how many of a hundred relations name nothing that exists
    MadePackages m_packages;
    std::set<std::tuple<std::string, std::string, std::string>> m_known;

    // The distributions of the standard library differ between its makers.
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool percent(int share) { return below(100) < share; }
    template <typename T, std::size_t size>
    T oneOf(const T (&list)[size])
    {
        return list[below(static_cast<int>(size))];
    }
    MadePackage &any()
    {
        return m_packages[static_cast<std::size_t>(below(static_cast<int>(m_packages.size())))];
    }

    std::string someName()
    {
        if (percent(m_lacking))
            return "missing" + std::to_string(below(3));
        if (percent(20))
            return "v" + std::to_string(below(m_virtualNames));
        return "p" + std::to_string(below(m_names));
    }

    void addPackage()
    {
        MadePackage package;
        package.name = "p" + std::to_string(below(m_names));
        package.version = oneOf(Versions);
        package.architecture = percent(25) ? "all" : m_two && percent(45) ? "i386" : "amd64";
        if (percent(60))
            package.multiArch = oneOf({"same", "foreign", "allowed"});
        if (!m_known.emplace(package.name, package.version, package.installedAs()).second)
            return;
        m_packages.push_back(package);
        // The same version of another architecture, as in a distribution.
        MadePackage twin = package;
        twin.architecture = "i386";
        if (m_two && package.architecture == "amd64" && percent(50)
            && m_known.emplace(twin.name, twin.version, twin.architecture).second)
            m_packages.push_back(twin);
    }

    MadeRelation relation()
    {
        MadeRelation relation;
        relation.name = someName();
        if (percent(45)) {
            relation.op = oneOf({"<<", "<=", "=", ">=", ">>"});
            relation.version = oneOf(Versions);
        }
        if (percent(20))
            relation.qualifier = oneOf({"any", "any", "amd64", "i386", "native", "armhf"});
        return relation;
    }

    void addRelations(MadePackage &package)
    {
        using Field = MadePackage::Field;
        for (int i = below(4); i > 0; --i) {
            MadePackage::Entry entry;
            for (int j = percent(35) ? 1 + below(4) : 1; j > 0; --j)
                entry.push_back(relation());
            package.fields[percent(20) ? Field::PreDepends : Field::Depends].push_back(entry);
        }
        if (percent(m_excluding)) {
            for (int i = 1 + below(2); i > 0; --i)
                package.fields[percent(50) ? Field::Conflicts : Field::Breaks].push_back({relation()});
        }
        if (percent(30)) {
            MadeRelation offer;
            offer.name = percent(70) ? "v" + std::to_string(below(m_virtualNames)) : someName();
            if (percent(50)) {
                offer.op = "=";
                offer.version = oneOf(Versions);
            }
            if (m_two && percent(10))
                offer.qualifier = oneOf({"amd64", "i386"});
            package.fields[Field::Provides].push_back({offer});
        }
    }

    void addCycle()
    {
        MadePackage *first = &any();
        MadePackage *last = first;
        for (int i = below(6); i >= 0; --i) {
            MadePackage *next = i == 0 ? first : &any();
            last->fields[MadePackage::Depends].push_back({{next->name, {}, {}, {}}});
            last = next;
        }
    }

    /** Packages of which only one can be installed, and one that would like two of them. */
    void addClique()
    {
        const MadeRelation name{"clique", {}, {}, {}};
        for (int i = 2 + below(4); i > 0; --i) {
            MadePackage &member = any();
            member.fields[MadePackage::Provides].push_back({name});
            member.fields[MadePackage::Conflicts].push_back({name});
            any().fields[MadePackage::Depends].push_back({{member.name, {}, {}, {}}});
        }
        any().fields[MadePackage::Depends].push_back({name});
    }

    template <typename Test>
    bool anyOffers(const std::string &name, Test test) const
    {
        return std::any_of(m_packages.begin(), m_packages.end(), [&](const MadePackage &package) {
            return package.offers(name) && test(package);
        });
    }

    /**
     * dose-debcheck takes "n:any" as met by every package of that name, whatever its version and Multi-Arch, and
     * "n:i386" by every one that is Multi-Arch: foreign.
     */
    bool isMisjudged(const MadeRelation &relation) const
    {
        if (relation.qualifier == "any") {
            return anyOffers(relation.name, [&](const MadePackage &package) {
                return package.name == relation.name
                       && (package.multiArch != "allowed" || !relation.version.empty());
            });
        }
        return !relation.qualifier.empty() && anyOffers(relation.name, [](const MadePackage &package) {
            return package.multiArch == "foreign";
        });
    }

    /**
     * When a package that is Multi-Arch: same excludes a provided name, dose-debcheck takes all versions of the
     * providers as excluded, or, when the relation has a version, the wrong ones.
     */
    bool excludesMisjudgedNames(const MadePackage &package) const
    {
        const auto isMisjudged = [&](const MadePackage::Entry &entry) {
            const MadeRelation &relation = entry.front();
            return anyOffers(relation.name,
                             [&](const MadePackage &provider) { return provider.provides(relation.name); })
                   && (!relation.op.empty() || anyOffers(relation.name, [&](const MadePackage &provider) {
                          return std::any_of(
                              m_packages.begin(), m_packages.end(), [&](const MadePackage &other) {
                                  return other.name == provider.name && !other.offers(relation.name);
                              });
                      }));
        };
        const auto hasMisjudged = [&](MadePackage::Field field) {
            const auto &entries = package.fields[field];
            return std::any_of(entries.begin(), entries.end(), isMisjudged);
        };
        return hasMisjudged(MadePackage::Conflicts) || hasMisjudged(MadePackage::Breaks);
    }

    void avoidFaultsOfTheJudge()
    {
        for (MadePackage &package : m_packages) {
            // It does not know that such packages count as "no".
            if (package.architecture == "all" && package.multiArch == "same")
                package.multiArch = "no";
        }
        for (MadePackage &package : m_packages) {
            // It lets packages of one version and two architectures stand together when one of them is "foreign". When
            // both offer the same, nobody needs both.
            for (MadePackage &twin : m_packages) {
                if (twin.name == package.name && twin.version == package.version
                    && package.multiArch == "foreign") {
                    twin.multiArch = "foreign";
                    twin.fields[MadePackage::Provides] = package.fields[MadePackage::Provides];
                }
            }
        }
        for (MadePackage &package : m_packages) {
            for (MadePackage::Entry &provided : package.fields[MadePackage::Provides]) {
                // It reads the architecture of a provided name wrongly.
                if (package.multiArch == "allowed")
                    provided.front().qualifier.clear();
            }
        }
        for (MadePackage &package : m_packages) {
            if (package.multiArch == "same" && excludesMisjudgedNames(package))
                package.multiArch = "no";
        }
        for (MadePackage &package : m_packages) {
            for (const auto field : {MadePackage::PreDepends,
                                     MadePackage::Depends,
                                     MadePackage::Conflicts,
                                     MadePackage::Breaks}) {
                for (MadePackage::Entry &entry : package.fields[field]) {
                    for (MadeRelation &relation : entry) {
                        if (isMisjudged(relation))
                            relation.qualifier.clear();
                    }
                }
            }
            // It lets a package exclude the one of its own name and another architecture that provides a name.
            for (const auto field : {MadePackage::Conflicts, MadePackage::Breaks}) {
                auto &entries = package.fields[field];
                entries.erase(std::remove_if(entries.begin(),
                                             entries.end(),
                                             [&](const MadePackage::Entry &entry) {
                                                 return anyOffers(entry.front().name,
                                                                  [&](const MadePackage &other) {
                                                                      return other.name == package.name
                                                                             && entry.front().name
                                                                                    != other.name;
                                                                  })
                                                        && m_two;
                                             }),
                              entries.end());
            }
        }
    }
};
} // namespace

std::string MadeRelation::text() const
{
    std::string result = name;
    if (!qualifier.empty())
        result += ':' + qualifier;
    if (!op.empty())
        result += " (" + op + ' ' + version + ')';
    return result;
}

bool MadePackage::provides(const std::string &wanted) const
{
    return std::any_of(fields[Provides].begin(), fields[Provides].end(), [&](const Entry &entry) {
        return entry.front().name == wanted;
    });
}

bool MadePackage::offers(const std::string &wanted) const
{
    return name == wanted || provides(wanted);
}

std::string MadePackage::textOf(const Entry &entry)
{
    std::string text;
    for (const MadeRelation &relation : entry)
        text += (text.empty() ? "" : " | ") + relation.text();
    return text;
}

QByteArray MadePackage::paragraph() const
{
    std::string text
        = "Package: " + name + "\nVersion: " + version + "\nArchitecture: " + architecture + '\n';
    if (multiArch != "no")
        text += "Multi-Arch: " + multiArch + '\n';
    if (essential)
        text += "Essential: yes\n";
    for (std::size_t i = 0; i < fields.size(); ++i) {
        std::string value;
        for (const Entry &entry : fields[i])
            value += (value.empty() ? "" : ", ") + textOf(entry);
        if (!value.empty())
            text += Names[i] + (": " + value) + '\n';
    }
    return QByteArray::fromStdString(text);
}

QByteArray indexOf(const MadePackages &packages)
{
    QByteArray text;
    for (const MadePackage &package : packages)
        text += package.paragraph() + '\n';
    return text;
}

MadePackages madeRepository(unsigned seed, bool twoArchitectures)
{
    return Maker(seed, twoArchitectures).make();
}
