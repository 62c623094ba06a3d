// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/** One name of a relation field such as Depends or Conflicts (deb-control(5)); the parts point into the field. */
struct RelationText
{
    std::string_view name;
    std::string_view
        qualifier; ///< what stands behind the colon of the name: an architecture, "any" or "native"
    std::string_view op; ///< empty without a constraint
    std::string_view version;
};

/**
 * Reads one alternative, in time linear in its length; false when it has no readable name.
 * PackageField::DependencyName and PackageField::DependencyConstraint define the parts.
 */
bool readRelation(std::string_view text, RelationText &relation);

/** Removes the piece before the next `separator` from the front of `rest` and returns it. */
std::string_view takePiece(std::string_view &rest, char separator);
