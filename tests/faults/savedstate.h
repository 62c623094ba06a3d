// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "depends/dependsdata.h"
#include "publication/publicationsettings.h"
#include "support/literals.h"
#include "ui/widgets/userchoices.h"
#include "ui/window/windowstate.h"

#include <QSettings>

/**
 * Settings and dependency results that contain the number of their save everywhere. So a test can see whether the files
 * after a killed save come from one save.
 */
namespace SavedState
{
constexpr int PackageCount = 2000;
inline const QString RepoPath = QStringLiteral("/srv/saved");
inline const QString OtherRepoPath = QStringLiteral("/srv/other");

inline QList<PackageInfoPtr> results(int number)
{
    const auto info = QSharedPointer<DependsInfo>::create();
    info->status = DependError;
    Dependency dependency;
    dependency.name = "needed"_s;
    dependency.version = QString::number(number);
    dependency.status = DependError;
    info->groups.append({DependError, {dependency}, false, dependency.name});
    QList<PackageInfoPtr> packages;
    for (int i = 0; i < PackageCount; ++i) {
        PackageInfo package;
        package.name = "package%1"_s.arg(i);
        package.version = QString::number(number);
        package.dependsInfo = info;
        packages.append(QSharedPointer<PackageInfo>::create(package));
    }
    return packages;
}

inline void save(int number)
{
    const QString text = QString::number(number);
    {
        QSettings settings;
        UserChoices choices;
        choices.signKeyId = text;
        choices.currentComponent = QString(4000, u'c') + text;
        choices.save(settings);
        WindowState window;
        window.currentRepository = "/srv/"_s + text;
        window.save(settings);
        PublicationSettings publication;
        publication.port = 8080;
        publication.repoPath = RepoPath;
        publication.host = "host"_s + text;
        publication.claim(settings);
    }
    DependsData(DependsData::userFileName(), RepoPath).savePackages(results(number));
}

/** The number of the save that wrote the settings; -1 when they are mixed or cannot be read. */
inline int settingsNumber()
{
    const QSettings settings;
    const UserChoices choices = UserChoices::load(settings);
    const QString number = choices.signKeyId;
    const bool whole = settings.status() == QSettings::NoError
                       && settings.value("Published8080/ip"_s).toString() == "host"_s + number
                       && choices.currentComponent == QString(4000, u'c') + number
                       && settings.value("MainWindow/currentRepository"_s).toString() == "/srv/"_s + number;
    return whole ? number.toInt() : -1;
}

/** The same for the dependency results. */
inline int resultsNumber()
{
    int number = -1;
    QObject context;
    DependsData data(DependsData::userFileName());
    QObject::connect(
        &data, &DependsData::packagesMerged, &context, [&number](const QList<PackageInfoPtr> &packages) {
            number = packages.size() == PackageCount ? 0 : -1;
            for (const PackageInfoPtr &package : packages) {
                const auto groups
                    = package->hasDependsInfo() ? package->dependsInfo->groups : QVector<DependencyGroup>();
                const int own = groups.size() != 1 || groups.first().key != "needed"_s
                                    ? -1
                                    : groups.first().alternatives.first().version.toInt();
                number = number == 0 || number == own ? own : -1;
            }
        });
    QList<PackageInfoPtr> bare;
    for (int i = 0; i < PackageCount; ++i) {
        PackageInfo package;
        package.name = "package%1"_s.arg(i);
        bare.append(QSharedPointer<PackageInfo>::create(package));
    }
    data.loadData(RepoPath);
    data.mergeStoredPackages(bare);
    return number;
}
} // namespace SavedState
