// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/packagefetch.h"

#include "apt/aptutils.h"

#include <chrono>
#include <utility>

PackageFetch::PackageFetch(QStringList environment, QVector<AptDownload> packages, QString folder)
    : m_folder(std::move(folder))
{
    m_paths = std::async(std::launch::async,
                         [this, environment = std::move(environment), packages = std::move(packages)] {
                             AptUtils apt;
                             apt.setEnvironment(environment);
                             apt.setStopRequest([this] { return m_isStopped.load(); });
                             return apt.downloadTogether(packages, m_folder);
                         });
}

PackageFetch::~PackageFetch()
{
    m_isStopped = true;
    if (m_paths.valid())
        m_paths.wait();
}

QStringList PackageFetch::wait(const std::function<bool()> &mustStop)
{
    constexpr std::chrono::milliseconds Interval(50);
    while (m_paths.wait_for(Interval) != std::future_status::ready)
        m_isStopped = m_isStopped || mustStop();
    return m_paths.get();
}
