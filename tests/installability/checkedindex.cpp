// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/checkedindex.h"

#include "installability/installabilitycheck.h"

#include <memory>
#include <numeric>

void addIndex(Universe *universe, const QByteArray &index, Universe::Role role)
{
    const auto owner = std::make_shared<const QByteArray>(index);
    std::string_view rest(owner->constData(), static_cast<std::size_t>(owner->size()));
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find("\n\n"), rest.size());
        if (end > 0)
            universe->add(ControlText(owner, rest.substr(0, end)), role);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

QString nameOf(const Universe &universe, int package)
{
    const NamedPackage named = universe.named(package);
    return named.name + QLatin1Char(' ') + named.version + QLatin1Char(' ') + named.architecture;
}

int packageOf(const Universe &universe, const QString &name)
{
    for (int i = 0; i < universe.count(); ++i) {
        if (nameOf(universe, i) == name)
            return i;
    }
    return -1;
}

QVector<int> everyPackage(const Universe &universe)
{
    QVector<int> packages(universe.count());
    std::iota(packages.begin(), packages.end(), 0);
    return packages;
}

QSet<QString> brokenHere(const QByteArray &index, const InstallSystem &system)
{
    Universe universe(system);
    addIndex(&universe, index);
    universe.finish();
    InstallabilityCheck check(universe);
    check.run(everyPackage(universe));
    QSet<QString> broken;
    for (int i = 0; i < universe.count(); ++i) {
        if (check.state(i) == NotInstallable)
            broken.insert(nameOf(universe, i));
        else if (check.state(i) != Installable)
            broken.insert(nameOf(universe, i) + QLatin1String(" (not decided)"));
    }
    return broken;
}
