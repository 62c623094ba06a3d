// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/packagesearcher.h"

#include "apt/aptutils.h"

#include <QHash>
#include <QScopeGuard>

#include <utility>

PackageSearcher::PackageSearcher(PackageFilter filter, AddedSources added)
    : m_filter(std::move(filter))
    , m_offered(std::move(added))
{
    qRegisterMetaType<QList<PackageInfo>>("QList<PackageInfo>");
    m_thread.setObjectName(QStringLiteral("PackageSearcher"));
    moveToThread(&m_thread);
    m_thread.start(QThread::InheritPriority);
}

PackageSearcher::~PackageSearcher()
{
    cancel();
    m_thread.quit();
    m_thread.wait();
}

void PackageSearcher::cancel()
{
    ++m_newest;
}

void PackageSearcher::startSearch(const QString &packagePattern)
{
    const int number = ++m_newest;
    if (packagePattern.isEmpty())
        return;
    ++m_pending;
    QMetaObject::invokeMethod(
        this, [this, packagePattern, number] { search(packagePattern, number); }, Qt::QueuedConnection);
}

QList<PackageInfo> PackageSearcher::accepted(const QList<PackageInfo> &offered) const
{
    // Which sources count is found out by the text of each entry in the settings.
    QHash<QString, bool> origins;
    QList<PackageInfo> packages;
    for (const PackageInfo &package : offered) {
        auto origin = origins.find(package.repository);
        if (origin == origins.end())
            origin = origins.insert(package.repository, m_filter.acceptsOrigin(package.repository));
        if (!*origin)
            continue;
        // The list of a source that is one folder is for all architectures, and so are some of its packages.
        if (package.architecture != QLatin1String("all") || m_filter.architectures.isEmpty()) {
            if (m_filter.acceptsArchitecture(package.architecture))
                packages.append(package);
            continue;
        }
        for (const QString &architecture : m_filter.architectures) {
            packages.append(package);
            packages.last().architecture = architecture;
        }
    }
    return packages;
}

void PackageSearcher::search(const QString &pattern, int number)
{
    const auto ended = qScopeGuard([this] { --m_pending; });
    if (isSuperseded(number))
        return;
    Q_EMIT searchStarted();
    const auto stopped = [this, number] { return isSuperseded(number); };
    const bool isAsked = m_offered.refresh(stopped);
    // A cancelled search fails because its program was killed.
    if (stopped())
        return;
    const QList<PackageInfo> offered
        = m_inDescriptions ? m_offered.withWords(pattern, stopped) : m_offered.withPrefix(pattern, stopped);
    const QList<PackageInfo> packages = accepted(offered);
    if (stopped())
        return;
    Q_EMIT answered(pattern);
    if (!isAsked || !m_offered.errorDetail().isEmpty())
        Q_EMIT searchFailed(AptUtils::tr("Apt error"), m_offered.errorDetail());
    else if (m_offered.isEmpty())
        Q_EMIT searchFailed(AptUtils::tr("Apt error"), AptUtils::noSourcesText());
    Q_EMIT newPackageFound(packages);
}
