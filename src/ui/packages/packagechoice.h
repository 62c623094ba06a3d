// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QStringList>

class PackageTree;

/** Which packages the user wants to see, by what their records say. An empty list is no restriction. */
struct PackageChoice
{
    enum Signature : quint8 { AnySignature, Signed, Unsigned };

    QStringList architectures; ///< whose indices list the package
    QStringList components;
    QStringList sections; ///< codes
    Signature signature = AnySignature;

    bool isEmpty() const
    {
        return architectures.isEmpty() && components.isEmpty() && sections.isEmpty()
               && signature == AnySignature;
    }
    bool accepts(const PackageInfo &package) const;
    bool operator==(const PackageChoice &other) const
    {
        return architectures == other.architectures && components == other.components
               && sections == other.sections && signature == other.signature;
    }

    /** The values that the packages of the tree have, sorted, and any signature. */
    static PackageChoice valuesOf(const PackageTree &tree);
};
