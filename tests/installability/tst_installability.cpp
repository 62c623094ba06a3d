// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/aptsimulation.h"
#include "installability/checkedindex.h"
#include "installability/dosedebcheck.h"
#include "installability/installabilitycheck.h"
#include "installability/madepackages.h"
#include "support/testenvironment.h"

namespace
{
const InstallSystem OneArchitecture{"amd64"_s, {}};
const InstallSystem TwoArchitectures{"amd64"_s, {"i386"_s}};

QStringList sorted(const QSet<QString> &names)
{
    QStringList list = names.values();
    list.sort();
    return list;
}

/** The first difference between the verdicts; empty when there is none. */
QString difference(const QByteArray &index, const InstallSystem &system)
{
    const DoseDebcheck::Verdict judged = DoseDebcheck::judge(index, system);
    if (!judged.error.isEmpty())
        return judged.error;
    const QSet<QString> broken = brokenHere(index, system);
    if (broken == judged.broken)
        return {};
    return "broken only here: %1\nbroken only for dose-debcheck: %2\n"_s.arg(
        sorted(broken - judged.broken).join(", "_s), sorted(judged.broken - broken).join(", "_s));
}

/** The difference, shown with as few packages as have one. */
QString smallestDifference(MadePackages packages, const InstallSystem &system)
{
    const auto stays = [&system](const MadePackages &fewer) {
        const QString text = difference(indexOf(fewer), system);
        return text.startsWith("broken only"_s);
    };
    const auto dropPackages = [&] {
        for (std::size_t i = packages.size(); i-- > 0;) {
            MadePackages fewer = packages;
            fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
            if (stays(fewer))
                packages = fewer;
        }
    };
    dropPackages();
    for (std::size_t i = 0; i < packages.size(); ++i) {
        for (std::size_t field = 0; field < MadePackage::FieldCount; ++field) {
            for (std::size_t entry = packages[i].fields[field].size(); entry-- > 0;) {
                MadePackages fewer = packages;
                auto &entries = fewer[i].fields[field];
                entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(entry));
                if (stays(fewer))
                    packages = fewer;
            }
        }
    }
    // Without relations, some more are not needed.
    dropPackages();
    const QByteArray index = indexOf(packages);
    return difference(index, system) + QString::fromUtf8(index);
}
} // namespace

/** Verdicts, compared package by package with a complete solver, and with apt where the solver is wrong. */
class TestInstallability : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sameVerdicts()
    {
        VELT_NEED_TOOL("dose-debcheck");
        int broken = 0;
        int all = 0;
        for (unsigned seed = 1; seed <= 200; ++seed) {
            for (const InstallSystem &system : {OneArchitecture, TwoArchitectures}) {
                const MadePackages packages = madeRepository(seed, !system.foreign.isEmpty());
                const QByteArray index = indexOf(packages);
                const QString text = difference(index, system);
                if (!text.isEmpty())
                    qWarning("seed %u: %s", seed, qPrintable(smallestDifference(packages, system)));
                QVERIFY2(text.isEmpty(),
                         qPrintable("seed %1, %2 architectures"_s.arg(seed).arg(system.foreign.size() + 1)));
                broken += brokenHere(index, system).size();
                all += static_cast<int>(packages.size());
            }
        }
        // Neither of the verdicts is rare.
        QVERIFY(broken > all / 5 && broken < all * 4 / 5);
    }
};

VELT_TEST_MAIN(TestInstallability, QCoreApplication)
#include "tst_installability.moc"
