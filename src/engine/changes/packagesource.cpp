// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packagesource.h"

#include "engine/archive/packagefile.h"
#include "engine/changes/packagesourcerules.h"
#include "engine/reprepro/configfolder.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <algorithm>

namespace
{
const QString Lists = QStringLiteral("lists");

std::optional<QByteArray> describe(const ConfigFolder &own, const QString &codename)
{
    const auto text = own.description();
    return text ? PackageSourceRules::description(*text, codename) : std::nullopt;
}
} // namespace

bool PackageSource::suits(const ConfigFolder &own, const QString &codename)
{
    const QString options = own.options();
    return !own.runsPrograms() && !options.isNull() && PackageSourceRules::areOptionsPlain(options)
           && describe(own, codename);
}

bool PackageSource::suits(const Package &package)
{
    const auto fits = [](const PackageInfo &record) {
        // Else the section would stand on the command line.
        return record.type == PackageType::Deb && record.component == record.indexComponent
               && record.section == record.control.field("Section")
               && PackageSourceRules::isPlain(record.indexComponent)
               && PackageSourceRules::isPlain(record.architecture);
    };
    return !package.records.isEmpty() && std::all_of(package.records.cbegin(), package.records.cend(), fits)
           && PackageSourceRules::record(package.control, package.checksums, "x");
}

PackageSource::PackageSource(const QString &repoPath,
                             const ConfigFolder &own,
                             const QString &codename,
                             const QVector<Package> &packages)
    : m_codename(codename)
    , m_copies(repoPath)
{
    const auto description = describe(own, codename);
    if (!description || !m_folder.isValid() || !PackageSourceRules::isPlain(m_folder.path()))
        return;
    QStringList components;
    QStringList architectures;
    for (const Package &package : packages) {
        for (const PackageInfo &record : package.records) {
            components.append(record.indexComponent);
            architectures.append(record.architecture);
        }
    }
    components.removeDuplicates();
    architectures.removeDuplicates();
    if (write(packages, components, architectures))
        m_config.emplace(own,
                         PrivateConfig::Keep,
                         *description,
                         PackageSourceRules::updates(m_folder.path(), components, architectures));
}

QString PackageSource::arguments() const
{
    return ReproCommand::update(m_codename, m_folder.filePath(Lists));
}

bool PackageSource::write(const QVector<Package> &packages,
                          const QStringList &components,
                          const QStringList &architectures)
{
    const QDir folder(m_folder.path());
    const QString files = QStringLiteral("files");
    if (!folder.mkdir(Lists) || !QFile::link(m_copies.folder(), folder.filePath(files)))
        return false;
    // The run looks for the index of each component and architecture.
    QMap<QString, QByteArray> indices;
    for (const QString &component : components)
        for (const QString &architecture : architectures)
            indices.insert(PackageSourceRules::index(component, architecture), QByteArray());
    for (const Package &package : packages) {
        const QString name = m_copies.add(package.path, PackageFile::LargestForIndex);
        const QString path = files + QLatin1Char('/') + name;
        const auto record = PackageSourceRules::record(package.control, package.checksums, path.toLatin1());
        if (!record || name.isEmpty())
            return false;
        for (const PackageInfo &place : package.records)
            indices[PackageSourceRules::index(place.indexComponent, place.architecture)] += *record;
    }
    for (auto index = indices.cbegin(); index != indices.cend(); ++index) {
        QFile file(folder.filePath(index.key()));
        if (!folder.mkpath(QFileInfo(index.key()).path()) || !file.open(QIODevice::WriteOnly)
            || !WholeFile::writeOut(file, index.value()))
            return false;
    }
    return true;
}
