// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"
#include "packagetesting.h"
#include "support/testenvironment.h"
#include "ui/packagefeed.h"

#include <QCoreApplication>
#include <QtTest>

#include <functional>
#include <memory>

/** What the engine emits on a job's thread, as it reaches the interface thread. */
class PackageFeedTest : public QObject
{
    Q_OBJECT

    /** Runs `job` on a thread of its own, as the engine's jobs are. */
    static std::unique_ptr<QThread> start(const std::function<void()> &job)
    {
        std::unique_ptr<QThread> thread(QThread::create(job));
        thread->start();
        return thread;
    }

    static PackageInfoPtr package(int number)
    {
        return PackageBuilder(QStringLiteral("p%1").arg(number)).build();
    }

private Q_SLOTS:
    void thousandsOfSignalsAreFewBatches();
    void arrivesBeforeFinished();
    void anotherRepositoryDropsWhatWaits();
    void flushDeliversAtOnce();
};

void PackageFeedTest::thousandsOfSignalsAreFewBatches()
{
    RepoShell shell;
    PackageFeed feed;
    feed.watch(shell);
    PackageChanges received;
    int batches = 0;
    QThread *deliveredOn = nullptr;
    connect(&feed, &PackageFeed::changesReady, this, [&](const PackageChanges &changes) {
        received += changes;
        ++batches;
        deliveredOn = QThread::currentThread();
    });
    const auto thread = start([&shell] {
        for (int i = 0; i < 63000; ++i)
            Q_EMIT shell.packageAdded(package(i));
        Q_EMIT shell.packageChanged(package(5));
        Q_EMIT shell.packageRemoved(package(6));
    });
    QTRY_COMPARE(received.size(), 63002);
    QVERIFY(thread->wait());
    QCOMPARE(deliveredOn, QThread::currentThread());
    QVERIFY2(batches < 100, qPrintable(QString::number(batches)));
    for (int i = 0; i < 63000; ++i)
        QCOMPARE(received.at(i).package->name, QStringLiteral("p%1").arg(i));
    QCOMPARE(received.at(63000).kind, PackageChange::Stored);
    QCOMPARE(received.at(63001).kind, PackageChange::Removed);
}

void PackageFeedTest::arrivesBeforeFinished()
{
    RepoShell shell;
    PackageFeed feed;
    feed.watch(shell);
    int received = 0;
    QVector<int> receivedAtFinish;
    connect(&feed, &PackageFeed::changesReady, this, [&](const PackageChanges &changes) {
        received += changes.size();
    });
    connect(&shell, &RepoShell::finished, this, [&] { receivedAtFinish.append(received); });
    connect(&shell, &RepoShell::repoCreated, this, [&] { receivedAtFinish.append(received); });
    // The second and third burst come within the interval after the delivery of the first.
    const auto thread = start([&shell] {
        Q_EMIT shell.packageAdded(package(1));
        Q_EMIT shell.finished(RepoEnums::COMMON_JOB, QString());
        QThread::yieldCurrentThread();
        Q_EMIT shell.packageAdded(package(2));
        Q_EMIT shell.packageRemoved(package(1));
        Q_EMIT shell.finished(RepoEnums::COMMON_JOB, QString());
        Q_EMIT shell.packageAdded(package(3));
        Q_EMIT shell.repoCreated(RepoEnums::SUCCESS);
    });
    QTRY_COMPARE(receivedAtFinish.size(), 3);
    QVERIFY(thread->wait());
    QVERIFY(receivedAtFinish.at(0) >= 1);
    QVERIFY(receivedAtFinish.at(1) >= 3);
    QCOMPARE(receivedAtFinish.at(2), 4);
}

void PackageFeedTest::anotherRepositoryDropsWhatWaits()
{
    RepoShell shell;
    PackageFeed feed;
    feed.watch(shell);
    PackageChanges received;
    connect(
        &feed, &PackageFeed::changesReady, this, [&](const PackageChanges &changes) { received += changes; });
    const auto thread = start([&shell] {
        Q_EMIT shell.packageAdded(package(1));
        Q_EMIT shell.pathChanged();
        Q_EMIT shell.packageAdded(package(2));
    });
    QVERIFY(thread->wait());
    QTRY_COMPARE(received.size(), 2);
    QCOMPARE(received.at(0).kind, PackageChange::Cleared);
    QCOMPARE(received.at(1).package->name, QStringLiteral("p2"));
}

void PackageFeedTest::flushDeliversAtOnce()
{
    PackageFeed feed;
    int batches = 0;
    connect(&feed, &PackageFeed::changesReady, this, [&batches] { ++batches; });
    feed.push({PackageChange::Stored, package(1)});
    QCOMPARE(batches, 0);
    feed.flush();
    QCOMPARE(batches, 1);
    // Nothing is lost or told twice when the wake-up that was posted first arrives after the flush.
    feed.push({PackageChange::Stored, package(2)});
    QTRY_COMPARE(batches, 2);
    feed.flush();
    QCOMPARE(batches, 2);
}

VELT_TEST_MAIN(PackageFeedTest, QCoreApplication)
#include "tst_packagefeed.moc"
