// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/descriptor.h"

#include <QByteArray>
#include <QString>

#include <optional>

#include <sys/types.h>

/** Identity of a file, independent of its names. */
struct FileId
{
    dev_t device = 0;
    ino_t number = 0;

    /** Of what has this path; a link is not followed. Nothing when there is nothing. */
    static std::optional<FileId> of(const QString &path);

    bool operator==(const FileId &other) const { return device == other.device && number == other.number; }
    bool operator!=(const FileId &other) const { return !(*this == other); }
};

/** Paths in folders that other users can write: a link there could lead to a file that its owner cannot read. */
namespace TrustedPath
{
/**
 * Opens the path, seen from the open folder, without access to the content (O_PATH). A link is followed only when the
 * link and its target have the same owner, and this owner is the user or root. When the result is not open, errno tells
 * the reason; EACCES also stands for a link that is not trusted.
 */
Descriptor open(int folder, const QByteArray &path);

/** The path of an open file, without links; empty when it has none. */
QByteArray pathOf(const Descriptor &file);
} // namespace TrustedPath
