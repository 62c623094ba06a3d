// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/reverseneeds.h"

#include "installability/installabilitycheck.h"

#include <algorithm>

ReverseNeeds::ReverseNeeds(const Universe &universe)
    : m_universe(universe)
    , m_index(universe)
{ }

QVector<int> ReverseNeeds::directUsers(int package) const
{
    QVector<int> result;
    for (const int set : m_index.setsWith(package)) {
        for (const int user : m_index.usersOf(set)) {
            if (user != package && m_universe.role(user) == Universe::Checked)
                result.append(user);
        }
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

QVector<int> ReverseNeeds::lostWithout(const QVector<int> &gone, const StopRequest &stopped) const
{
    const QVector<int> users = possibleUsers(gone);
    if (users.isEmpty())
        return {};
    InstallabilityCheck before(m_universe);
    if (!before.run(users, stopped))
        return {};
    QVector<int> installable;
    std::copy_if(users.begin(), users.end(), std::back_inserter(installable), [&](int user) {
        return before.state(user) == Installable;
    });
    InstallabilityCheck after(m_universe, {gone.begin(), gone.end()});
    after.run(installable, stopped);
    QVector<int> result;
    std::copy_if(installable.begin(), installable.end(), std::back_inserter(result), [&](int user) {
        return after.state(user) == NotInstallable;
    });
    return result;
}

QVector<int> ReverseNeeds::checkedPackages(const QVector<int> &others) const
{
    QVector<int> result;
    for (int package = 0; package < m_universe.count(); ++package) {
        if (m_universe.role(package) == Universe::Checked && !others.contains(package))
            result.append(package);
    }
    return result;
}

QVector<int> ReverseNeeds::possibleUsers(const QVector<int> &packages) const
{
    std::vector<bool> seen(static_cast<std::size_t>(m_universe.count()));
    std::vector<int> queue(packages.begin(), packages.end());
    for (const int package : packages)
        seen[static_cast<std::size_t>(package)] = true;
    QVector<int> result;
    while (!queue.empty()) {
        const int package = queue.back();
        queue.pop_back();
        // What every system has concerns every package.
        if (m_universe.isEssential(package))
            return checkedPackages(packages);
        for (const int set : m_index.setsWith(package)) {
            for (const int user : m_index.usersOf(set)) {
                if (seen[static_cast<std::size_t>(user)])
                    continue;
                seen[static_cast<std::size_t>(user)] = true;
                queue.push_back(user);
                if (m_universe.role(user) == Universe::Checked)
                    result.append(user);
            }
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}
