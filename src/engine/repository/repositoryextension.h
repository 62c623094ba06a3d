// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QString>
#include <QStringList>

/** Architectures and components that a repository lacks, and that its description can get in addition. */
struct RepositoryExtension
{
    QStringList architectures = {};
    QStringList components = {};

    bool isEmpty() const { return architectures.isEmpty() && components.isEmpty(); }
    /** All names, for the user. */
    QString names() const { return (architectures + components).join(QLatin1String(", ")); }
    void unite(const RepositoryExtension &other);
    /** The description with those that it lacks, in their order behind its own. */
    RepoInfo appliedTo(RepoInfo info) const;

    /** Whether packages can be built for an architecture of this name, and a description can have it. */
    static bool canBeArchitecture(const QString &name);
    static bool canBeComponent(const QString &name);
};
