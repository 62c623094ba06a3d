// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/depends/dependsarrangement.h"
#include "ui/depends/dependsmodel.h"

#include <QHash>
#include <QSet>
#include <QWidget>

#include <memory>

class DependsProxyModel;
class QAction;
class QToolButton;

namespace Ui
{
class DependsView;
}

/**
 * The tab "Dependences" of a package: what the package depends on, and which source has it. A new record of the same
 * package leaves the tree as the user has it. Where there is nothing to show, words say why.
 */
class DependsView : public QWidget
{
    Q_OBJECT
public:
    explicit DependsView(QWidget *parent = nullptr);
    ~DependsView() override;

    /** Shows this record; null shows nothing. */
    void setPackage(const PackageInfoPtr &package);
    PackageInfoPtr package() const { return m_package; }
    void setAliases(const DependsModel::AliasLookup &aliases);
    /** Whether the package can be checked now. */
    void setCheckEnabled(bool enabled);

    /**
     * The dependencies of the selected rows that the local repository lacks, one for each entry. Of alternatives it is
     * the first that a public source offers. A selected package stands for its shown entries. Entries that were never
     * checked are left out.
     */
    QVector<Dependency> selectedLacks() const;
    /** The action that copies the selected rows as text. */
    QAction *copyAction() const { return m_copyAction; }

    const DependsArrangement &arrangement() const { return m_arrangement; }
    void setArrangement(const DependsArrangement &arrangement);

Q_SIGNALS:
    /** The user has changed the arrangement of the tree. */
    void arrangementChanged();
    /** The user wants the package to be checked. */
    void checkRequested();
    /** The user wants the menu of the selected rows at this place of the screen. */
    void menuRequested(const QPoint &globalPos);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /** The look of the tree; each row is identified by its text and those of its parents. */
    struct TreeState
    {
        QSet<QStringList> expanded;
        QSet<QStringList> selected;
        QStringList current;
        int scroll = 0;
    };

    std::unique_ptr<Ui::DependsView> m_ui;
    DependsModel *m_model;
    DependsProxyModel *m_proxy;
    QAction *m_copyAction;
    QHash<int, QToolButton *> m_toggles; ///< by state
    PackageInfoPtr m_package;
    DependsArrangement m_arrangement;
    bool m_layingOut = false; ///< the program, not the user, changes the widths

    void setUpToggles();
    void setUpTree();
    void showState(int state, bool shown);
    void layOutColumns();
    void columnResized(int column, int width);
    void copySelected();
    void showEmptyText();
    QString emptyText() const;
    TreeState treeState() const;
    void restore(const TreeState &state);
    void forEachRow(const QModelIndex &parent, const std::function<void(const QModelIndex &)> &visit) const;
    void collectLacks(const QModelIndex &index, QVector<Dependency> &lacks) const;
};
