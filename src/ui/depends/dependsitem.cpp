// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/depends/dependsitem.h"

#include <utility>

DependsItem::DependsItem(QString text, DependsItem *parent)
    : m_parent(parent)
    , m_text(std::move(text))
{ }

DependsItem::~DependsItem() = default;

int DependsItem::childCount() const
{
    needChildren();
    return static_cast<int>(m_children.size());
}

DependsItem *DependsItem::child(int row) const
{
    needChildren();
    const auto place = static_cast<std::size_t>(row);
    return row >= 0 && place < m_children.size() ? m_children[place].get() : nullptr;
}

void DependsItem::appendChild(std::unique_ptr<DependsItem> child)
{
    child->m_parent = this;
    child->m_row = static_cast<int>(m_children.size());
    m_children.push_back(std::move(child));
}

std::optional<DependStatus> DependsItem::sourceStatus(const QString & /*source*/) const
{
    return std::nullopt;
}

QString DependsItem::sourceExplanation(const QString & /*source*/, const QString & /*shownSource*/) const
{
    return {};
}

void DependsItem::forgetChildren()
{
    m_children.clear();
    m_childrenMade = false;
}

void DependsItem::needChildren() const
{
    if (m_childrenMade)
        return;
    // A const_cast, because callers see no difference between existing children and children that are made on demand.
    auto *self = const_cast<DependsItem *>(this); // NOLINT(cppcoreguidelines-pro-type-const-cast)
    self->m_childrenMade = true;
    self->makeChildren();
}
