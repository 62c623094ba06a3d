// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "ui/packages/packagefeed.h"

#include <functional>
#include <memory>

/** What the engine emits on a job's thread, as it reaches the interface thread. */
class PackageFeedTest : public QObject
{
    Q_OBJECT

    struct Fixture
    {
        RepoShell shell;
        PackageFeed feed;
        ListChanges received;
        int batches = 0;
        QThread *deliveredOn = nullptr;

        Fixture()
        {
            feed.watch(shell);
            connect(&feed, &PackageFeed::changesReady, &feed, [this](const ListChanges &changes) {
                received += changes;
                ++batches;
                deliveredOn = QThread::currentThread();
            });
        }
        /** Runs `job` on a thread of its own, as the engine's jobs are. */
        static std::unique_ptr<QThread> start(const std::function<void()> &job)
        {
            std::unique_ptr<QThread> thread(QThread::create(job));
            thread->start();
            return thread;
        }
    };

    static PackageInfoPtr package(int number) { return PackageBuilder("p%1"_s.arg(number)).build(); }

private Q_SLOTS:
    void thousandsOfSignalsAreFewBatches()
    {
        Fixture f;
        const auto thread = f.start([&f] {
            for (int i = 0; i < 63000; ++i)
                Q_EMIT f.shell.packageAdded(package(i));
            Q_EMIT f.shell.packageChanged(package(5));
            Q_EMIT f.shell.packageRemoved(package(6));
        });
        QTRY_COMPARE_WITH_TIMEOUT(f.received.size(), 63002, 60000);
        QVERIFY(thread->wait());
        QCOMPARE(f.deliveredOn, QThread::currentThread());
        QVERIFY2(f.batches < 100, qPrintable(QString::number(f.batches)));
        for (int i = 0; i < 63000; ++i)
            QCOMPARE(f.received.at(i).package->name, "p%1"_s.arg(i));
        QCOMPARE(f.received.at(63000).kind, ListChange::Stored);
        QCOMPARE(f.received.at(63001).kind, ListChange::Removed);
    }

    void arrivesBeforeFinished()
    {
        Fixture f;
        QVector<int> atFinish;
        const auto note = [&] { atFinish.append(f.received.size()); };
        connect(&f.shell, &RepoShell::finished, this, note);
        connect(&f.shell, &RepoShell::repoCreated, this, note);
        // The second and third burst come within the interval after the delivery of the first.
        const auto thread = f.start([&f] {
            Q_EMIT f.shell.packageAdded(package(1));
            Q_EMIT f.shell.finished(RepoEnums::COMMON_JOB, QString());
            QThread::yieldCurrentThread();
            Q_EMIT f.shell.packageAdded(package(2));
            Q_EMIT f.shell.packageRemoved(package(1));
            Q_EMIT f.shell.finished(RepoEnums::COMMON_JOB, QString());
            Q_EMIT f.shell.packageAdded(package(3));
            Q_EMIT f.shell.repoCreated(RepoEnums::SUCCESS);
        });
        QTRY_COMPARE(atFinish.size(), 3);
        QVERIFY(thread->wait());
        QVERIFY(atFinish.at(0) >= 1 && atFinish.at(1) >= 3);
        QCOMPARE(atFinish.at(2), 4);
    }

    void anotherRepositoryDropsWhatWaits()
    {
        Fixture f;
        const auto thread = f.start([&f] {
            Q_EMIT f.shell.packageAdded(package(1));
            Q_EMIT f.shell.pathChanged();
            Q_EMIT f.shell.packageAdded(package(2));
        });
        QVERIFY(thread->wait());
        QTRY_COMPARE(f.received.size(), 2);
        QCOMPARE(f.received.at(0).kind, ListChange::Cleared);
        QCOMPARE(f.received.at(1).package->name, "p2"_s);
    }

    void flushDeliversAtOnce()
    {
        Fixture f;
        f.feed.push({ListChange::Stored, package(1)});
        QCOMPARE(f.batches, 0);
        f.feed.flush();
        QCOMPARE(f.batches, 1);
        // Nothing is lost or told twice when the wake-up that was posted first arrives after the flush.
        f.feed.push({ListChange::Stored, package(2)});
        QTRY_COMPARE(f.batches, 2);
        f.feed.flush();
        QCOMPARE(f.batches, 2);
    }
};

VELT_TEST_MAIN(PackageFeedTest, QCoreApplication)
#include "tst_packagefeed.moc"
