// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/scopedvariable.h"

#include <QStringList>

/**
 * An apt that knows only folders of packages. Each is a source with the suite "dogwood" and the component "main". It
 * has its own configuration, state and cache. While it lives, all programs use it.
 */
class LocalApt
{
public:
    /**
     * The packages of a source are in ROOT/SOURCE/pool, or its index already exists. `root` is an absolute path. A
     * failure ends the test program.
     */
    LocalApt(const QString &root, const QStringList &sources);

private:
    ScopedVariable m_config;
};
