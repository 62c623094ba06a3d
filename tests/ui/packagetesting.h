// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QAbstractItemModel>

#include <utility>

/** Builds records: PackageBuilder("foo").section("admin").state(DependError).build(). */
class PackageBuilder
{
public:
    explicit PackageBuilder(QString name)
    {
        m_info.name = std::move(name);
        m_info.version = QStringLiteral("1.0");
        m_info.component = QStringLiteral("main");
        m_info.architecture = QStringLiteral("amd64");
        m_info.section = QStringLiteral("admin");
    }

    PackageBuilder &version(const QString &version) { return set(m_info.version, version); }
    PackageBuilder &component(const QString &component) { return set(m_info.component, component); }
    PackageBuilder &architecture(const QString &architecture)
    {
        return set(m_info.architecture, architecture);
    }
    PackageBuilder &section(const QString &section) { return set(m_info.section, section); }
    PackageBuilder &control(const QByteArray &text)
    {
        m_info.control = ControlText(text);
        return *this;
    }
    PackageBuilder &state(DependStatus status)
    {
        auto info = QSharedPointer<DependsInfo>::create();
        info->status = status;
        m_info.dependsInfo = info;
        return *this;
    }
    PackageInfoPtr build() const { return PackageInfoPtr::create(m_info); }

private:
    PackageInfo m_info;

    PackageBuilder &set(QString &field, const QString &value)
    {
        field = value;
        return *this;
    }
};

/** The model as text: one line a row, two blanks a level, the state (user role + 2) in brackets where it is set. */
inline QString treeText(const QAbstractItemModel &model, const QModelIndex &parent = {}, int level = 0)
{
    QString text;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        text += QString(2 * level, QLatin1Char(' ')) + index.data().toString();
        const int state = index.data(Qt::UserRole + 2).toInt();
        if (state != 2)
            text += QStringLiteral(" [%1]").arg(state);
        text += QLatin1Char('\n') + treeText(model, index, level + 1);
    }
    return text;
}
