// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/pooldates.h"

#include "core/runinbackground.h"
#include "ui/packages/repomodel.h"

#include <QDateTime>
#include <QFileInfo>

PoolDates::PoolDates(RepoModel *model)
    : QObject(model)
    , m_model(model)
{
    constexpr int Delay = 200; // milliseconds
    m_timer.setSingleShot(true);
    m_timer.setInterval(Delay);
    connect(&m_timer, &QTimer::timeout, this, &PoolDates::ask);
    connect(model, &RepoModel::modelReset, this, &PoolDates::askLater);
    connect(model, &RepoModel::rowsInserted, this, &PoolDates::askLater);
    connect(model, &RepoModel::dataChanged, this, &PoolDates::askLater);
}

void PoolDates::askLater()
{
    if (m_model->columns().contains(PackageColumns::Added) && !m_timer.isActive())
        m_timer.start();
}

void PoolDates::ask()
{
    if (m_isReading) {
        m_timer.start();
        return;
    }
    QList<PackageInfoPtr> unknown;
    const PackageTree &tree = m_model->tree();
    for (const int component : tree.root().children) {
        for (const int section : tree.item(component).children) {
            for (const int id : tree.item(section).children) {
                if (tree.item(id).added == 0)
                    unknown.append(tree.item(id).package);
            }
        }
    }
    if (unknown.isEmpty())
        return;
    m_isReading = true;
    const auto read = [unknown] {
        QVector<QPair<PackageInfoPtr, qint64>> times;
        times.reserve(unknown.size());
        for (const PackageInfoPtr &package : unknown) {
            const QFileInfo file(package->filePath());
            times.append({package, file.exists() ? file.lastModified().toSecsSinceEpoch() : -1});
        }
        return times;
    };
    runInBackground(this, read, [this](const QVector<QPair<PackageInfoPtr, qint64>> &times) {
        m_isReading = false;
        m_model->setAdded(times);
    });
}
