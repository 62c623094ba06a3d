// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The bytes that the user may still write on the disk of this folder; negative where the file system does not tell. */
qint64 freeSpace(const QString &folder);
