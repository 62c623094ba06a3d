// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/dependsinfo.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

/**
 * One row of the dependency tree. Children are made when they are first asked for: a repository has a hundred times
 * more dependencies than anybody opens. Also the root itself, which only holds the packages.
 */
class DependsItem
{
public:
    explicit DependsItem(QString text, DependsItem *parent = nullptr);
    virtual ~DependsItem();
    DependsItem(const DependsItem &) = delete;
    DependsItem &operator=(const DependsItem &) = delete;

    DependsItem *parent() const { return m_parent; }
    /** Place among the parent's children. */
    int row() const { return m_row; }
    int childCount() const;
    /** Null when there is no such row. */
    DependsItem *child(int row) const;
    /** Takes ownership; the item becomes the last child. */
    void appendChild(std::unique_ptr<DependsItem> child);

    QString text() const { return m_text; }
    virtual DependStatus status() const { return DependUndefined; }
    /** The state that a source gives the item; none when it has nothing to do with how the item stands. */
    virtual std::optional<DependStatus> sourceStatus(const QString &source) const;
    /** What the row says in words. */
    virtual QString explanation() const { return m_text; }
    /** What the source has to do with the item's state, in words; `shownSource` is its name for the user. */
    virtual QString sourceExplanation(const QString &source, const QString &shownSource) const;
    /** What the row asks for, one of these; empty for a package of the repository. */
    virtual QVector<Dependency> alternatives() const { return {}; }

protected:
    /** Appends the children; called once, and again after forgetChildren(). */
    virtual void makeChildren() { }
    void forgetChildren();
    void setText(const QString &text) { m_text = text; }

private:
    void needChildren() const;

    DependsItem *m_parent;
    int m_row = 0;
    QString m_text;
    std::vector<std::unique_ptr<DependsItem>> m_children;
    bool m_childrenMade = false;
};
