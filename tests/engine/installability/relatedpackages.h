// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/engineharness.h"
#include "support/localapt.h"

/** A package from one line: "name version", then fields, such as "app 1.0; Depends: lib (>= 2); Architecture: all". */
inline DebBuilder described(const QString &line)
{
    const QStringList parts = line.split(u';');
    DebBuilder deb(parts.first().section(u' ', 0, 0));
    deb.version(parts.first().section(u' ', 1));
    for (const QString &field : parts.mid(1))
        deb.field(field.section(u':', 0, 0).trimmed(), field.section(u':', 1).trimmed());
    return deb;
}

/** A repository with these packages, and an apt that knows one source with others. */
class RelatedPackages : public RepoHarness
{
public:
    RelatedPackages(const QStringList &own, const QStringList &offered)
    {
        choice = PackageReplacementRules::ReplaceAll;
        for (const QString &line : offered)
            described(line).build(at("public/pool"));
        apt = std::make_unique<LocalApt>(folder.path(), QStringList{"public"_s});
        addAll(own);
    }

    void addAll(const QStringList &lines)
    {
        QStringList files;
        for (const QString &line : lines)
            files.append(deb(described(line)));
        if (!files.isEmpty() && add(files) != RepoEnums::SUCCESS)
            qFatal("%s", qPrintable(words()));
    }

    Code check(CompleteCheckBase::Kind kind, const QString &repository = {})
    {
        return run([&] { shell.checkCompletely(shell.packages(), {kind, repository, {}}); });
    }

    /** The names of the packages in this state, separated by blanks. */
    QString named(Installability state) const
    {
        QStringList names;
        for (const PackageInfoPtr &package : shell.packages()) {
            if (package->installabilityState() == state)
                names.append(package->name);
        }
        names.sort();
        return names.join(u' ');
    }
    QString broken() const { return named(NotInstallable); }

    std::unique_ptr<LocalApt> apt;
};

/** The names of packages, separated by blanks. */
inline QString names(const QList<PackageInfoPtr> &packages)
{
    QStringList list;
    for (const PackageInfoPtr &package : packages)
        list.append(package->name);
    list.sort();
    return list.join(u' ');
}
