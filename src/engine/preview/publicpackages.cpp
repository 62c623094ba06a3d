// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/publicpackages.h"

#include "apt/aptutils.h"
#include "apt/dpkgoutput.h"

namespace
{
constexpr int NamesPerRun = 500;

QString keyOf(const QString &name, const QString &version)
{
    return name + QLatin1Char(' ') + version;
}
} // namespace

PublicPackages::PublicPackages(const QStringList &names,
                               const QStringList &environment,
                               const StopRequest &stopped)
{
    AptUtils apt;
    apt.setEnvironment(environment);
    apt.setStopRequest(stopped);
    for (int first = 0; first < names.size() && !(stopped && stopped()); first += NamesPerRun) {
        const QStringList paragraphs = apt.packageParagraphs(names.mid(first, NamesPerRun))
                                           .split(QStringLiteral("\n\n"), Qt::SkipEmptyParts);
        for (const QString &paragraph : paragraphs) {
            const auto package = DpkgOutput::packageInfo(DpkgOutput::printed(paragraph.toLocal8Bit()));
            // The installed version has no file to fetch.
            if (!package || package->control.field("Filename").isEmpty())
                continue;
            OfferedPackage offer;
            offer.package = QSharedPointer<PackageInfo>::create(*package);
            offer.sha256 = package->control.field("SHA256");
            offer.size = package->control.field("Size").toLongLong();
            m_packages[keyOf(package->name, package->version)].append(offer);
        }
    }
}

std::optional<OfferedPackage>
PublicPackages::find(const QString &name, const QString &version, const QString &architecture) const
{
    const auto packages = m_packages.value(keyOf(name, version));
    for (const OfferedPackage &offer : packages)
        if (offer.package->architecture == architecture
            || offer.package->architecture == QLatin1String("all"))
            return offer;
    return std::nullopt;
}
