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
    , m_copies(std::in_place, repoPath)
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
        m_config.emplace(
            own,
            PrivateConfig::Keep,
            *description,
            PackageSourceRules::updates(m_folder.path(),
                                        components,
                                        architectures,
                                        m_copies ? PackageSourceRules::Linked : PackageSourceRules::Copied));
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
    if (!folder.mkdir(Lists) || !folder.mkdir(QStringLiteral("files")))
        return false;
    // The run looks for the index of each component and architecture.
    QMap<QString, QByteArray> indices;
    for (const QString &component : components)
        for (const QString &architecture : architectures)
            indices.insert(PackageSourceRules::index(component, architecture), QByteArray());
    const QStringList copies = copy(packages);
    for (int i = 0; i < packages.size(); ++i) {
        const Package &package = packages.at(i);
        const QString name
            = copies.isEmpty() ? link(QFileInfo(package.path).absoluteFilePath()) : copies.at(i);
        const auto record = PackageSourceRules::record(package.control, package.checksums, name.toLatin1());
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

QStringList PackageSource::copy(const QVector<Package> &packages)
{
    const QString folder = QStringLiteral("copies");
    QStringList paths;
    bool areCopied = QFile::link(m_copies->folder(), m_folder.filePath(folder));
    for (auto package = packages.cbegin(); areCopied && package != packages.cend(); ++package) {
        const QString name = m_copies->add(package->path, PackageFile::LargestForIndex);
        areCopied = !name.isEmpty();
        paths.append(folder + QLatin1Char('/') + name);
    }
    if (areCopied)
        return paths;
    m_copies.reset();
    return {};
}

QString PackageSource::link(const QString &path)
{
    // A link to each folder takes the disk as long as a copy of a small file, so most sources have a single one.
    const QString end = PackageSourceRules::plainEnd(path);
    const QString target = path.chopped(end.size());
    QString &name = m_links[target];
    if (name.isEmpty()) {
        name = QStringLiteral("files/%1").arg(m_links.size());
        if (end.isEmpty())
            name += QLatin1String(".deb");
        if (!QFile::link(target, m_folder.filePath(name)))
            return {};
    }
    return end.isEmpty() ? name : name + QLatin1Char('/') + end;
}
