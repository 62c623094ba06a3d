// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The free bytes that the user may still write on the disk of this folder; negative when the size is not known. */
qint64 freeSpace(const QString &folder);
