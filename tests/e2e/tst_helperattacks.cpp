// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/throwawaysystem.h"

namespace
{
const QString helper = "org.corvana.velt.repo / org.corvana.velt.repo.Manager"_s;
/** What may be done, and changes nothing here. */
const QString harmless = "RemoveLocalSource s 'deb http://nowhere:1/ dog main'"_s;
} // namespace

/** What the helper stands: users who flood it, and being killed in the middle of its work. */
class HelperAttacksTest : public ThrowAwayTest
{
    Q_OBJECT

    /** What root is told whose helper is killed after this time; when this returns, the next helper has recovered. */
    QString callAndKill(const QString &call, int milliseconds) const
    {
        return box(R"(busctl call %1 %2 2>&1 & sleep %3
            systemctl kill -s KILL velt-admin-repo-helper; wait $! || true
            systemctl reset-failed velt-admin-repo-helper
            until busctl call %1 %4 >/dev/null 2>&1; do sleep 0.1; done)"_s.arg(
            helper, call, QString::number(milliseconds / 1000.0), harmless));
    }

    void prepare() override
    {
        QVERIFY(
            QFile::copy(QStringLiteral(FLOOD_PROGRAM), QDir(m_system.sharedFolder()).filePath("busflood"_s)));
    }

private Q_SLOTS:
    void answersRootInAFlood_data()
    {
        QTest::addColumn<QString>("flood");
        QTest::newRow("large, without an answer") << "1 10 25165824 silent"_s;
        QTest::newRow("large, from many") << "20 1 25165824 reply"_s;
        QTest::newRow("small, without an answer") << "50 1000 30 silent"_s;
        QTest::newRow("small, from many") << "250 40 30 silent"_s;
    }

    void answersRootInAFlood()
    {
        QFETCH(QString, flood);
        QCOMPARE(box("busctl call %1 %2"_s.arg(helper, harmless)), "b true"_s);
        const QString told = box(R"(process=$(systemctl show -P MainPID velt-admin-repo-helper)
            runuser -u tester -- /shared/busflood %3 >/dev/null & flood=$!
            calls=0
            while kill -0 $flood 2>/dev/null || [ $calls -lt 5 ]; do
                busctl call --timeout=5 %1 %2 2>&1 || true
                calls=$((calls + 1))
            done | sort -u
            later=$(systemctl show -P MainPID velt-admin-repo-helper)
            [ $later = $process ] || echo another helper
            awk '/VmHWM/ && $2 > 80000' /proc/$later/status)"_s.arg(helper, harmless, flood));
        QCOMPARE(told, "b true"_s);
    }

    void isNeverLeftHalfway_data()
    {
        QTest::addColumn<QString>("preparation");
        QTest::addColumn<int>("protocol");
        QTest::newRow("HTTP") << "true"_s << 0;
        QTest::newRow("FTP") << "printf 'listen=YES\nlisten_port=2100\n# by hand\n' >/etc/vsftpd.conf; "
                                "rm -f /etc/vsftpd.conf.*; systemctl restart vsftpd"_s
                             << 1;
    }

    void isNeverLeftHalfway()
    {
        QFETCH(QString, preparation);
        QFETCH(int, protocol);
        const QString publish = "PublishRepo sii '%1' 2121 %2"_s.arg(openRepo, QString::number(protocol));
        const QString unpublish = "UnpublishRepo ii 2121 %1"_s.arg(protocol);
        const auto call
            = [this](const QString &what) { return box("busctl call %1 %2"_s.arg(helper, what)); };
        QCOMPARE(box(preparation), QString());
        const QString before = m_system.state();
        QCOMPARE(call(publish), "b true"_s);
        const QString published = m_system.state();
        QVERIFY(published != before);
        QCOMPARE(call(unpublish), "b true"_s);
        const QString unpublished = m_system.state();

        for (int i = 0; i < 5; ++i) {
            QCOMPARE(box(preparation), QString());
            int time = QRandomGenerator::global()->bounded(1500);
            const QString told = callAndKill(publish, time);
            // The helper can be killed when all is done and only the answer is missing.
            const QString state = m_system.state();
            QVERIFY2(state == published || (state == before && told != "b true"_s),
                     qPrintable("published, killed after %1 ms\n"_s.arg(time) + state));
            if (state != published)
                QCOMPARE(call(publish), "b true"_s);
            time = QRandomGenerator::global()->bounded(400);
            callAndKill(unpublish, time);
            const QString after = m_system.state();
            QVERIFY2(after == published || after == unpublished,
                     qPrintable("unpublished, killed after %1 ms\n"_s.arg(time) + after));
            if (after == published)
                QCOMPARE(call(unpublish), "b true"_s);
        }
    }
};

VELT_TEST_MAIN(HelperAttacksTest, QCoreApplication)
#include "tst_helperattacks.moc"
