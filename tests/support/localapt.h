// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/scopedvariable.h"

#include <QStringList>

/**
 * An apt that knows nothing but folders of packages, each a source of the suite "dogwood" with the component "main",
 * and that has configuration, state and cache of its own; as long as this lives all programs get it.
 */
class LocalApt
{
public:
    /** The packages of a source lie in ROOT/SOURCE/pool, or its index is there already; root is an absolute path. Fails the program on trouble. */
    LocalApt(const QString &root, const QStringList &sources);

private:
    ScopedVariable m_config;
};
