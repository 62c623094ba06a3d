// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptcommands.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <functional>
#include <future>

/** Fetches the files of several packages with one run of apt, while the job puts in those that it has. */
class PackageFetch
{
public:
    /** Begins. `environment` is for apt, and `folder` an empty folder for the files. */
    PackageFetch(QStringList environment, QVector<AptDownload> packages, QString folder);
    /** Ends apt, and waits for its end. */
    ~PackageFetch();
    PackageFetch(const PackageFetch &) = delete;
    PackageFetch &operator=(const PackageFetch &) = delete;

    /**
     * Waits for the files. Their paths are in the order of the packages; the path of a file that has not come is empty.
     * `mustStop` is called now and then, while apt goes on, and ends apt when it answers true.
     */
    QStringList wait(const std::function<bool()> &mustStop);
    QString folder() const { return m_folder; }

private:
    QString m_folder;
    std::atomic<bool> m_isStopped{false};
    std::future<QStringList> m_paths;
};
