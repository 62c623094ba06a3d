// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"

#include <QDialog>

class QButtonGroup;
class QLabel;
class QVBoxLayout;

/**
 * Asks whether a package that is being added replaces the one that is there. When more packages follow, it also
 * offers to settle all further collisions of the job at once.
 */
class PackageReplacementDialog : public QDialog
{
    Q_OBJECT
public:
    PackageReplacementDialog(RepoEnums::ErrorCode collision,
                             const PackageInfo &package,
                             bool singlePackage,
                             QWidget *parent = nullptr);

    /** Says which repository is meant, for when several are open. */
    void setRepository(const QString &path);

    /**
     * Shows the version of the file that would replace the package, beside the present one, and which architectures
     * the answer is for when there are several.
     */
    void setNewcomer(const QString &fileName, const QString &version, const QStringList &architectures = {});

    /** What the user decided; closing the dialog without an answer keeps the present package. */
    PackageReplacementRules::Rule rule() const { return m_rule; }
    /** Whether the whole job is to end; the present package is kept then. */
    bool wantsStop() const { return m_wantsStop; }

private:
    void addOptions(QVBoxLayout *rows);
    void fitHeight();
    void finish(PackageReplacementRules::Rule rule);

    QButtonGroup *m_options;
    QLabel *m_repositoryLabel;
    QLabel *m_versionsLabel;
    QString m_presentVersion; ///< with its architecture
    PackageReplacementRules::Rule m_rule = PackageReplacementRules::KeepThis;
    bool m_wantsStop = false;
};
