// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/addedsources.h"
#include "ui/search/foundpackagesmodel.h"
#include "ui/search/packagefilter.h"

#include <QDialog>

class SearchPackageWidget;

/** Lets the user choose packages of the public repositories that apt knows or that the user added. */
class AddPackageDialog : public QDialog
{
    Q_OBJECT
public:
    /**
     * `filter` limits the offered packages; `aliases` returns the user's names for repositories, and `present` the
     * versions that the repository has. The lists of `added` are fetched when it is time.
     */
    AddPackageDialog(const PackageFilter &filter,
                     const FoundPackagesModel::AliasLookup &aliases,
                     const FoundPackagesModel::PresentLookup &present,
                     const AddedSources &added = {},
                     QWidget *parent = nullptr);

    /** The packages to download: name, version and architecture; `repository` is the origin text. */
    QList<PackageInfo> selectedPackages() const;

private:
    SearchPackageWidget *m_searchWidget;
};
