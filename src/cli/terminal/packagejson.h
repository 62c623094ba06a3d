// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QByteArray>
#include <QJsonArray>
#include <QList>

/** A package in a line for people: its name, version, architecture and component. */
QString shownPackage(const PackageInfo &package);

/** Packages for other programs: package, version, architecture, component, section, filename and sha256 of each. */
namespace PackageJson
{
QJsonArray array(const QList<PackageInfoPtr> &packages);
/** The same as text, for tens of thousands of packages. */
QByteArray text(const QList<PackageInfoPtr> &packages);
} // namespace PackageJson
