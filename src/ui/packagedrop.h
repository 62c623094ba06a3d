// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QMimeData;

/** Files that are dragged onto the program. */
namespace PackageDrop
{
/** Whether a drag can carry files at all; what they are is only looked at when they are dropped. */
bool accepts(const QMimeData *data);
/** The local package files (*.deb, *.udeb) of a drop, each once, in its order. */
QStringList packageFiles(const QMimeData *data);
} // namespace PackageDrop
