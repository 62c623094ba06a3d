// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <string>
#include <vector>

/** One alternative of an entry, or a provided name. */
struct MadeRelation
{
    std::string name;
    std::string qualifier; ///< an architecture, "any" or "native"; can be empty
    std::string op; ///< empty: any version
    std::string version;

    std::string text() const;
};

/** A package that exists as a paragraph only. */
struct MadePackage
{
    enum Field { PreDepends, Depends, Conflicts, Breaks, Provides, FieldCount };
    using Entry = std::vector<MadeRelation>;

    std::string name;
    std::string version;
    std::string architecture;
    std::string multiArch = "no";
    bool essential = false;
    std::array<std::vector<Entry>, FieldCount> fields;

    QByteArray paragraph() const;
    static std::string textOf(const Entry &entry);
    /** Whether it has the name or provides it. */
    bool offers(const std::string &wanted) const;
    bool provides(const std::string &wanted) const;
    /** The architecture that its relations are meant for: "all" counts as the native one. */
    std::string installedAs() const { return architecture == "all" ? "amd64" : architecture; }
};

using MadePackages = std::vector<MadePackage>;

/** The packages as an index. */
QByteArray indexOf(const MadePackages &packages);

/**
 * A repository of 5 to 60 packages, the same for the same seed everywhere: relations of every kind, cycles, groups that
 * exclude each other, versions of one name, provided names, and essential packages in some. Cases in which
 * dose-debcheck decides otherwise than apt do not occur.
 */
MadePackages madeRepository(unsigned seed, bool twoArchitectures);
