// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/dependsinfo.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

/**
 * One row of the dependency tree. Children are made on demand, because a repository has a hundred times more
 * dependencies than a user opens. The class is also used for the root, which only holds the packages.
 */
class DependsItem
{
public:
    explicit DependsItem(QString text, DependsItem *parent = nullptr);
    virtual ~DependsItem();
    DependsItem(const DependsItem &) = delete;
    DependsItem &operator=(const DependsItem &) = delete;

    DependsItem *parent() const { return m_parent; }
    /** Index among the parent's children. */
    int row() const { return m_row; }
    int childCount() const;
    /** Null when there is no such row. */
    DependsItem *child(int row) const;
    /** Takes ownership; the item becomes the last child. */
    void appendChild(std::unique_ptr<DependsItem> child);

    QString text() const { return m_text; }
    virtual DependStatus status() const { return DependUndefined; }
    /** The state of the item according to one source; none when the source has no influence on the item. */
    virtual std::optional<DependStatus> sourceStatus(const QString &source) const;
    /** Text that explains the row. */
    virtual QString explanation() const { return m_text; }
    /** Text about the influence of the source on the item's state; `shownSource` is the source's name for the user. */
    virtual QString sourceExplanation(const QString &source, const QString &shownSource) const;
    /** The dependencies of the row, of which one must be met; empty for a package of the repository. */
    virtual QVector<Dependency> alternatives() const { return {}; }

protected:
    /** Appends the children. Called once, and again after forgetChildren(). */
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
