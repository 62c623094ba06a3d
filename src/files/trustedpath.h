// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/descriptor.h"

#include <QByteArray>

#include <sys/types.h>

/** A file, whatever its names are. */
struct FileId
{
    dev_t device = 0;
    ino_t number = 0;

    bool operator==(const FileId &other) const { return device == other.device && number == other.number; }
    bool operator!=(const FileId &other) const { return !(*this == other); }
};

/** Paths in folders that others can write too: their links could lead to files that are not theirs to read. */
namespace TrustedPath
{
/**
 * Opens what the path names, seen from the open folder, without reading it (O_PATH). A link is followed only when the
 * link and what it leads to have the same owner, and the owner is the user or root. When the result is not open,
 * errno says why; EACCES also stands for such a link of somebody else.
 */
Descriptor open(int folder, const QByteArray &path);

/** The path of an open file, without links; empty when it has none. */
QByteArray pathOf(const Descriptor &file);
} // namespace TrustedPath
