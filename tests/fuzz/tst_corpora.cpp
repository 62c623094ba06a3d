// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the fuzzing targets with the stored inputs.
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QtTest>

#include <ctime>

Q_DECLARE_METATYPE(FuzzTarget::Function)

class TestCorpora : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rulesHold_data()
    {
        QTest::addColumn<FuzzTarget::Function>("target");
        QTest::addColumn<QString>("file");
        for (const FuzzTarget::Target &target : FuzzTarget::All) {
            const QDir folder(QStringLiteral(FUZZ_CORPUS "/%1").arg(QLatin1String(target.name)));
            const QStringList files = folder.entryList(QDir::Files);
            QVERIFY2(!files.isEmpty(), target.name);
            for (const QString &file : files)
                QTest::addRow("%s/%s", target.name, qPrintable(file))
                    << target.function << folder.filePath(file);
        }
    }
    void rulesHold()
    {
        QFETCH(FuzzTarget::Function, target);
        QFETCH(QString, file);
        const QByteArray bytes = readFile(file);
        const std::clock_t begin = std::clock();
        try {
            target({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        } catch (const Fuzzing::Broken &broken) {
            QFAIL(broken.what());
        }
        // Processor time, so that other work on the machine does not count.
        const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
#ifdef __SANITIZE_ADDRESS__
        // The sanitizer walks the stack at each allocation, which makes it more than ten times slower.
        constexpr double Limit = 60;
#else
        constexpr double Limit = 5;
#endif
        QVERIFY2(seconds < Limit, qPrintable("took %1 seconds"_s.arg(seconds)));
    }
};

VELT_TEST_MAIN(TestCorpora, QCoreApplication)
#include "tst_corpora.moc"
