// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/packagesearcher.h"

#include "apt/aptutils.h"

#include <QScopeGuard>
#include <QtConcurrent>

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
    // The blocking function also works in this thread: all threads of the pool may be busy with waiting jobs.
    const QList<PackageInfo> packages = QtConcurrent::blockingFiltered(
        offered, [this](const PackageInfo &package) { return m_filter.accepts(package); });
    if (stopped())
        return;
    Q_EMIT answered(pattern);
    if (!isAsked || !m_offered.errorDetail().isEmpty())
        Q_EMIT searchFailed(AptUtils::tr("Apt error"), m_offered.errorDetail());
    else if (m_offered.isEmpty())
        Q_EMIT searchFailed(AptUtils::tr("Apt error"), AptUtils::noSourcesText());
    Q_EMIT newPackageFound(packages);
}
