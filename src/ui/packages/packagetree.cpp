// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagetree.h"

#include "core/countof.h"
#include "ui/widgets/sections.h"

#include <QHash>
#include <QPair>

#include <algorithm>

namespace
{
/** Separates the parts of an item's key; no name contains it. */
constexpr QChar Separator(0x1f);

bool packageLess(const PackageInfo &left, const PackageInfo &right)
{
    if (const int order = left.name.compare(right.name))
        return order < 0;
    if (const int order = left.architecture.compare(right.architecture))
        return order < 0;
    return left.type < right.type;
}

bool itemLess(const RepoItem &left, const RepoItem &right)
{
    if (!left.isContainer())
        return packageLess(*left.package, *right.package);
    // Sections without a readable name are shown with their code, which has lower-case letters.
    if (const int order = left.title.compare(right.title, Qt::CaseInsensitive))
        return order < 0;
    return left.code < right.code;
}

struct Group
{
    QString component;
    QString section;
    std::vector<int> packages; ///< indices in the list of packages from which the tree is built
};

std::vector<Group> groupBySection(const QList<PackageInfoPtr> &packages)
{
    std::vector<Group> groups;
    QHash<QPair<QString, QString>, std::size_t> places;
    for (int i = 0; i < packages.size(); ++i) {
        const PackageInfo &package = *packages.at(i);
        const QPair<QString, QString> key(package.component, package.section);
        const auto known = places.constFind(key);
        std::size_t place = groups.size();
        if (known != places.constEnd()) {
            place = *known;
        } else {
            places.insert(key, place);
            groups.push_back({package.component, package.section, {}});
        }
        groups[place].packages.push_back(i);
    }
    return groups;
}
} // namespace

PackageTree::PackageTree()
{
    build({});
}

void PackageTree::build(const QList<PackageInfoPtr> &packages)
{
    const QString title = m_items.empty() ? QString() : root().title;
    m_items.clear();
    m_freeIds.clear();
    m_byKey.clear();
    m_breaking.clear();
    m_items.reserve(static_cast<std::size_t>(packages.size()) + 128);
    m_byKey.reserve(static_cast<std::size_t>(packages.size()));

    RepoItem rootItem;
    rootItem.kind = RepoItem::Repository;
    rootItem.title = title;
    m_items.push_back(rootItem);

    // The complement marks a place in the list that has no id yet; a later record takes the mark of an earlier one.
    std::vector<int *> ids; // places of the ids in m_byKey, because a second search takes long
    ids.reserve(static_cast<std::size_t>(packages.size()));
    for (int i = 0; i < packages.size(); ++i) {
        int &id = m_byKey[PackageKey::of(*packages.at(i))];
        id = ~i;
        ids.push_back(&id);
    }

    std::vector<Group> groups = groupBySection(packages);
    const auto containersFirst = [this](const Group &left, const Group &right) {
        if (left.component != right.component)
            return itemLess(makeContainer(RepoItem::Component, left.component),
                            makeContainer(RepoItem::Component, right.component));
        return itemLess(makeContainer(RepoItem::Section, left.section),
                        makeContainer(RepoItem::Section, right.section));
    };
    std::sort(groups.begin(), groups.end(), containersFirst);

    int component = -1;
    for (Group &group : groups) {
        const auto less = [&packages](int left, int right) {
            return packageLess(*packages.at(left), *packages.at(right));
        };
        if (!std::is_sorted(group.packages.begin(), group.packages.end(), less))
            std::sort(group.packages.begin(), group.packages.end(), less);
        int section = -1;
        for (const int place : group.packages) {
            int *const known = ids[static_cast<std::size_t>(place)];
            if (*known != ~place)
                continue;
            if (component < 0 || item(component).code != group.component)
                component = append(makeContainer(RepoItem::Component, group.component), RootId);
            if (section < 0) {
                section = append(makeContainer(RepoItem::Section, group.section), component);
                at(section).children.reserve(static_cast<int>(group.packages.size()));
            }
            *known = append(makePackage(packages.at(place)), section);
            count(item(*known), 1);
        }
        if (section >= 0) {
            for (const int id : item(section).children)
                updateDistinction(id);
        }
    }
}

QList<PackageInfoPtr> PackageTree::packages() const
{
    QList<PackageInfoPtr> result;
    result.reserve(countOf(m_byKey));
    for (const RepoItem &entry : m_items) {
        if (entry.package)
            result.append(entry.package);
    }
    return result;
}

int PackageTree::packageId(const PackageKey &key) const
{
    const auto known = m_byKey.find(key);
    return known == m_byKey.end() ? -1 : known->second;
}

int PackageTree::containerId(int parent, const QString &code) const
{
    for (const int child : item(parent).children) {
        if (item(child).code == code)
            return child;
    }
    return -1;
}

bool PackageTree::isInPlace(int id, const PackageInfo &package) const
{
    const RepoItem &section = item(item(id).parent);
    return section.code == package.section && item(section.parent).code == package.component;
}

QString PackageTree::keyOf(int id) const
{
    const RepoItem &entry = item(id);
    if (entry.kind == RepoItem::Repository)
        return QString(Separator);
    if (entry.isContainer())
        return keyOf(entry.parent) + entry.code + Separator;
    const PackageInfo &package = *entry.package;
    const QString type = QString::number(static_cast<int>(package.type));
    return QStringList{package.name, package.indexComponent, package.architecture, type}.join(Separator);
}

int PackageTree::idOfKey(const QString &key) const
{
    if (key.isEmpty())
        return -1;
    const QStringList parts = key.split(Separator);
    if (!parts.first().isEmpty()) {
        if (parts.size() != 4)
            return -1;
        return packageId({parts[0], parts[1], parts[2], static_cast<PackageType>(parts[3].toInt())});
    }
    int id = RootId;
    for (int i = 1; i + 1 < parts.size() && id >= 0; ++i)
        id = containerId(id, parts[i]);
    return id;
}

RepoItem PackageTree::makeContainer(RepoItem::Kind kind, const QString &code) const
{
    RepoItem result;
    result.kind = kind;
    result.code = code;
    result.title = kind == RepoItem::Section ? Sections::displayName(code) : code;
    return result;
}

RepoItem PackageTree::makePackage(const PackageInfoPtr &package) const
{
    RepoItem result;
    result.package = package;
    result.state = package->dependStatus();
    return result;
}

int PackageTree::rowFor(const RepoItem &newItem, int parent) const
{
    const QVector<int> &children = item(parent).children;
    const auto place = std::lower_bound(
        children.cbegin(), children.cend(), newItem, [this](int id, const RepoItem &wanted) {
            return itemLess(item(id), wanted);
        });
    return static_cast<int>(place - children.cbegin());
}

int PackageTree::append(RepoItem newItem, int parent)
{
    const int id = static_cast<int>(m_items.size());
    newItem.parent = parent;
    newItem.row = countOf(item(parent).children);
    m_items.push_back(std::move(newItem));
    at(parent).children.append(id);
    return id;
}

int PackageTree::insert(RepoItem newItem, int parent, int row)
{
    newItem.parent = parent;
    int id = static_cast<int>(m_items.size());
    if (m_freeIds.empty()) {
        m_items.push_back(std::move(newItem));
    } else {
        id = m_freeIds.back();
        m_freeIds.pop_back();
        at(id) = std::move(newItem);
    }
    QVector<int> &children = at(parent).children;
    children.insert(row, id);
    for (int i = row; i < children.size(); ++i)
        at(children.at(i)).row = i;
    if (item(id).package) {
        m_byKey.insert_or_assign(PackageKey::of(*item(id).package), id);
        count(item(id), 1);
        updateDistinction(id);
    }
    return id;
}

void PackageTree::take(int id)
{
    const RepoItem taken = item(id);
    if (taken.package) {
        count(taken, -1);
        m_byKey.erase(PackageKey::of(*taken.package));
    }
    QVector<int> &siblings = at(taken.parent).children;
    siblings.remove(taken.row);
    for (int i = taken.row; i < siblings.size(); ++i)
        at(siblings.at(i)).row = i;
    at(id) = RepoItem();
    m_freeIds.push_back(id);
}

void PackageTree::replace(int id, const PackageInfoPtr &package)
{
    count(item(id), -1);
    // Another version has another file.
    if (item(id).package->version != package->version)
        at(id).added = 0;
    at(id).package = package;
    at(id).state = package->dependStatus();
    count(item(id), 1);
}

bool PackageTree::updateDistinction(int id)
{
    RepoItem &entry = at(id);
    const QVector<int> &siblings = item(entry.parent).children;
    bool byArchitecture = false;
    bool byType = false;
    // Packages of the same name are next to each other.
    for (const int row : {entry.row - 1, entry.row + 1}) {
        if (row < 0 || row >= siblings.size())
            continue;
        const PackageInfo &other = *item(siblings.at(row)).package;
        const bool isNamesake = other.name == entry.package->name;
        byArchitecture = byArchitecture || (isNamesake && other.architecture != entry.package->architecture);
        byType = byType || (isNamesake && other.type != entry.package->type);
    }
    const bool isOther = byArchitecture != entry.differsInArchitecture || byType != entry.differsInType;
    entry.differsInArchitecture = byArchitecture;
    entry.differsInType = byType;
    return isOther;
}

void PackageTree::setState(int id, int state)
{
    count(item(id), -1);
    at(id).state = state;
    count(item(id), 1);
}

void PackageTree::count(const RepoItem &package, int difference)
{
    const int slot = package.state - DependUndefined;
    const Installability installability = package.installability();
    m_breaking.count(*package.package, difference);
    for (int id = package.parent; id >= 0; id = item(id).parent) {
        RepoItem &container = at(id);
        container.packageCount += difference;
        if (installability == NotInstallable)
            container.notInstallable += difference;
        else if (installability == InstallabilityUndecided)
            container.undecided += difference;
        if (slot >= 0 && slot < static_cast<int>(container.stateCounts.size()))
            container.stateCounts[static_cast<std::size_t>(slot)] += difference;
    }
}
