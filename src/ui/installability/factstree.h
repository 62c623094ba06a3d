// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "engine/installability/removalimpact.h"
#include "ui/installability/installabilityfacts.h"

#include <QSet>
#include <QStringList>
#include <QTreeWidget>

/**
 * What is known of the installability of one package, in words: why it cannot be installed, and who needs it. The names
 * of packages that can be shown look like links. Groups that the user has closed stay closed.
 */
class FactsTree : public QTreeWidget
{
    Q_OBJECT
public:
    explicit FactsTree(QWidget *parent = nullptr);

    void showFacts(const InstallabilityFacts &facts);

Q_SIGNALS:
    /** The user wants to see this package. `repository` is a path; empty: the one that is shown. */
    void packageChosen(const QString &repository, const NamedPackage &package);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QSet<QStringList> m_closed; ///< texts of groups, each after the texts of its parents
    QString m_architecture; ///< of the package; others of it are named without it
    bool m_isFilling = false;

    void addReason(const PackageInfo &package);
    void addRecommends(const QStringList &entries);
    void addNeeds(const InstallabilityFacts &facts);
    void addImpact(QTreeWidgetItem *parent, const RepositoryImpact &impact, const QString &repository);
    void addPackages(QTreeWidgetItem *parent,
                     const QString &title,
                     const QList<PackageInfoPtr> &packages,
                     const QString &repository);
    QTreeWidgetItem *addGroup(QTreeWidgetItem *parent, const QString &title);
    void addLink(QTreeWidgetItem *parent, const NamedPackage &package, const QString &repository);
    void choose(const QTreeWidgetItem *item);
    QColor linkColour() const;
    static void addText(QTreeWidgetItem *parent, const QString &text);
    static QStringList pathOf(const QTreeWidgetItem *item);
};

Q_DECLARE_METATYPE(NamedPackage)
