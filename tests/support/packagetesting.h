// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "support/literals.h"

#include <QAbstractItemModel>

/** Builds records: PackageBuilder("foo"_s).section("net"_s).state(DependError).build(). */
class PackageBuilder
{
public:
    explicit PackageBuilder(const QString &name)
    {
        set(&PackageInfo::name, name).version("1.0"_s).component("main"_s);
        architecture("amd64"_s).section("admin"_s);
    }

    PackageBuilder &version(const QString &version) { return set(&PackageInfo::version, version); }
    /** Both what the Section field and what the index says. */
    PackageBuilder &component(const QString &component)
    {
        return set(&PackageInfo::component, component).set(&PackageInfo::indexComponent, component);
    }
    PackageBuilder &architecture(const QString &name) { return set(&PackageInfo::architecture, name); }
    PackageBuilder &section(const QString &section) { return set(&PackageInfo::section, section); }
    PackageBuilder &signedWith(const QString &key) { return set(&PackageInfo::signingKey, key); }
    PackageBuilder &control(const QByteArray &text) { return set(&PackageInfo::control, ControlText(text)); }
    PackageBuilder &state(DependStatus status)
    {
        const auto info = QSharedPointer<DependsInfo>::create();
        info->status = status;
        m_info.dependsInfo = info;
        return *this;
    }
    PackageBuilder &installability(const InstallabilityInfo &info)
    {
        m_info.installability = QSharedPointer<InstallabilityInfo>::create(info);
        return *this;
    }
    PackageInfoPtr build() const { return PackageInfoPtr::create(m_info); }

private:
    PackageInfo m_info;

    template <typename Value>
    PackageBuilder &set(Value PackageInfo::*field, const Value &value)
    {
        m_info.*field = value;
        return *this;
    }
};

/** The model as text, "repo{main{Shells{bash, zsh[0]}}}": the state stands in brackets where it is not undefined. */
inline QString treeText(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList items;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const int state = index.data(Qt::UserRole + 2).toInt();
        items += index.data().toString() + (state == DependUndefined ? QString() : "[%1]"_s.arg(state));
        if (model.hasChildren(index))
            items.last() += "{"_s + treeText(model, index) + "}"_s;
    }
    return items.join(", "_s);
}

/** The first item with this text. */
inline QModelIndex find(const QAbstractItemModel &model, const char *text)
{
    const auto flags = Qt::MatchExactly | Qt::MatchRecursive;
    return model.match(model.index(0, 0), Qt::DisplayRole, QString::fromUtf8(text), 1, flags).value(0);
}
