// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/universe.h"

#include <QByteArray>
#include <QSet>

/** Adds the paragraphs of an index, which are parted by empty lines. The bytes are not copied and must stay. */
void addIndex(Universe *universe, const QByteArray &index, Universe::Role role = Universe::Checked);

/** "NAME VERSION ARCHITECTURE", as the judges call a package. */
QString nameOf(const Universe &universe, int package);
/** Index of the package with this name; -1 when there is none. */
int packageOf(const Universe &universe, const QString &name);
QVector<int> everyPackage(const Universe &universe);

/** The packages of the index that cannot be installed. A package that stays undecided stands there with a mark. */
QSet<QString> brokenHere(const QByteArray &index, const InstallSystem &system);
