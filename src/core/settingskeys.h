// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Names of the stored user choices. Code that reads them opens a short-lived QSettings without arguments. */
namespace SettingsKey
{
inline const QString RecentOpennedRepos
    = QStringLiteral("recentOpennedRepos"); ///< paths to open at the next start
inline const QString RecentRepoList = QStringLiteral("recentRepoList"); ///< paths, the most recent first
inline const QString CurrentComponent = QStringLiteral("currentComponent");
inline const QString SignPackage = QStringLiteral("signPackage");
inline const QString SignKeyId = QStringLiteral("signKeyID");
inline const QString ShowAddPkgSettings = QStringLiteral("showAddPkgSettings");
inline const QString ShowPkgVersion = QStringLiteral("showPkgVersion");
inline const QString ShowPackageMore
    = QStringLiteral("showPackageMore"); ///< more rows on the page of a package
inline const QString PackageColumns
    = QStringLiteral("packageColumns"); ///< columns of the package tree, see PackageColumns::key()
inline const QString PackageColumnWidths
    = QStringLiteral("packageColumnWidths"); ///< texts of a column and its width in pixels
inline const QString AddPkgCheckDepends = QStringLiteral("addPkgCheckDepends");
inline const QString DependsRepoType = QStringLiteral("dependsRepoType"); ///< see DependsRepoType
inline const QString CompleteCheckBase = QStringLiteral("completeCheckBase"); ///< see CompleteCheckBase::Kind
inline const QString CompleteCheckRepository = QStringLiteral("completeCheckRepository"); ///< path
inline const QString CompleteCheckArchitectures
    = QStringLiteral("completeCheckArchitectures"); ///< foreign ones
// See HistoryLimits.
inline const QString HistoryIsOn = QStringLiteral("historyIsOn");
inline const QString HistoryPoints = QStringLiteral("historyPoints");
inline const QString HistoryDays = QStringLiteral("historyDays");
inline const QString HistorySize = QStringLiteral("historySize"); ///< bytes
inline const QString SearchDescriptions = QStringLiteral("searchDescriptions");
inline const QString PreviewWhen = QStringLiteral("previewWhen"); ///< see PreviewWhen
inline const QString ApprovedRepositories
    = QStringLiteral("ApprovedRepositories"); ///< a group, see RepositoryApprovals
inline const QString BusyHttpPorts = QStringLiteral("busyHttpPorts"); ///< decimal texts

// The group of a published repository is this prefix and the port.
inline const QString PublishedPrefix = QStringLiteral("Published");
inline const QString PublishedRepoPath = QStringLiteral("repoPath");
inline const QString PublishedTrusted = QStringLiteral("trustedRepo");
inline const QString PublishedArch = QStringLiteral("arch"); ///< separated by blanks
inline const QString PublishedType = QStringLiteral("type"); ///< see PublicationProtocol
inline const QString PublishedIp = QStringLiteral("ip");

// Groups, see ExternalRepos.
inline const QString Aliases = QStringLiteral("Aliases"); ///< names by encoded source
inline const QString DisabledRepos = QStringLiteral("DisabledRepos"); ///< sources by ExternalRepo
inline const QString EnabledRepos = QStringLiteral("EnabledRepos"); ///< sources by ExternalRepo
inline const QString AddedRepos
    = QStringLiteral("AddedRepos"); ///< the user's own sources that are switched off, by ExternalRepo
inline const QString ExternalRepo = QStringLiteral("repo%1"); ///< running number
} // namespace SettingsKey

/** Where dependencies are looked for; a bit set, stored as a number. */
enum DependsRepoType { DependsNowhere = 0, DependsLocal = 1, DependsPublic = 2, DependsEverywhere = 3 };

/** When a preview is shown before a job that changes packages; stored as a number. */
enum PreviewWhen { PreviewAlways = 0, PreviewWhenBreaking = 1, PreviewNever = 2 };
