// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/offeredpackages.h"

#include <QSet>

#include <algorithm>

namespace
{
bool mustStop(const StopRequest &stopped)
{
    return stopped && stopped();
}

QString text(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}
} // namespace

bool OfferedPackages::refresh(const StopRequest &stopped)
{
    AptLists apt;
    const bool isAsked = apt.find(stopped);
    m_errorDetail = apt.errorDetail();
    if (!isAsked)
        return false;
    m_errorDetail.clear();
    m_added.settle(apt);
    const QVector<AptList> found = apt.lists() + m_added.lists(stopped, &m_errorDetail);
    QVector<List> lists;
    for (const AptList &list : found) {
        if (mustStop(stopped))
            return false;
        const QByteArray stamp = list.stamp();
        const auto known = std::find_if(m_lists.cbegin(), m_lists.cend(), [&](const List &other) {
            return other.list.fileName == list.fileName && other.list.origin == list.origin
                   && other.stamp == stamp;
        });
        if (known != m_lists.cend()) {
            lists.append(*known);
        } else {
            List added{list, stamp, {}, {}};
            added.paragraphs = list.read(&added.problem);
            lists.append(added);
        }
        if (!lists.last().problem.isEmpty())
            m_errorDetail += lists.last().problem + QLatin1Char('\n');
    }
    m_lists = lists;
    return true;
}

template <typename Fits>
QList<PackageInfo> OfferedPackages::find(const Fits &fits, const StopRequest &stopped) const
{
    constexpr int Interval = 1000; // packages
    QList<PackageInfo> found;
    QSet<QString> known;
    for (const List &list : m_lists) {
        if (mustStop(stopped))
            return {};
        int looked = 0;
        for (const ControlText &paragraph : list.paragraphs) {
            if (++looked % Interval == 0 && mustStop(stopped))
                return {};
            const std::string_view name = controlFieldValue(paragraph.text(), "Package");
            if (name.empty() || !fits(name, paragraph))
                continue;
            PackageInfo package;
            package.name = text(name);
            package.version = paragraph.field("Version");
            package.architecture
                = list.list.architecture.isEmpty() ? paragraph.field("Architecture") : list.list.architecture;
            package.repository = list.list.origin;
            // Another component of the source can have the same version.
            const QString key
                = QStringList{package.name, package.version, package.architecture, package.repository}.join(
                    QLatin1Char('\n'));
            if (known.contains(key))
                continue;
            known.insert(key);
            found.append(package);
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const PackageInfo &left, const PackageInfo &right) {
        return left.name < right.name;
    });
    return found;
}

QList<PackageInfo> OfferedPackages::withPrefix(const QString &prefix, const StopRequest &stopped) const
{
    const std::string start = prefix.toStdString();
    return find([&start](std::string_view name,
                         const ControlText &) { return name.substr(0, start.size()) == start; },
                stopped);
}

QList<PackageInfo> OfferedPackages::withWords(const QString &words, const StopRequest &stopped) const
{
    const QStringList wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (wanted.isEmpty())
        return {};
    const auto fits = [&wanted](std::string_view name, const ControlText &paragraph) {
        const QString shown = text(name) + QLatin1Char('\n') + paragraph.field("Description");
        return std::all_of(wanted.cbegin(), wanted.cend(), [&shown](const QString &word) {
            return shown.contains(word, Qt::CaseInsensitive);
        });
    };
    return find(fits, stopped);
}
