// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"

#include <QDialog>

class QButtonGroup;
class QLabel;
class QVBoxLayout;

/**
 * Asks whether a package that is being added replaces the present one. When more packages follow, the user can also
 * decide all further collisions of the job.
 */
class PackageReplacementDialog : public QDialog
{
    Q_OBJECT
public:
    PackageReplacementDialog(RepoEnums::ErrorCode collision,
                             const PackageInfo &package,
                             bool singlePackage,
                             QWidget *parent = nullptr);

    /** Shows which repository the question is about, because several can be open. */
    void setRepository(const QString &path);

    /**
     * Shows the version of the new file beside the present version. When there are several architectures, it also shows
     * for which architectures the answer is valid.
     */
    void setNewcomer(const QString &fileName, const QString &version, const QStringList &architectures = {});

    /** Offers to stop here, and to decide what is left in a preview. */
    void offerPreview();

    /** The user's decision. Closing the dialog without an answer keeps the present package. */
    PackageReplacementRules::Rule rule() const { return m_rule; }
    /** Whether the user wants to stop the whole job. The present package is kept then. */
    bool wantsStop() const { return m_wantsStop; }
    /** Whether the user wants to stop and see a preview of what is left. */
    bool wantsPreview() const { return m_wantsPreview; }

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
    bool m_wantsPreview = false;
};
