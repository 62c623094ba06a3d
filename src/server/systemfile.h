// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

#include <sys/types.h>

/**
 * Reads and changes single files of the system in the way that a root process must. No link in the last two parts of a
 * path is followed. Only regular files are read and changed. Readers find the old file or the new file, never a part of
 * it, also after a crash. `errorText` receives a sentence about an error, unless it is null.
 */
namespace SystemFile
{
/** A file and its content at one point in time. */
struct State
{
    bool exists = false;
    QByteArray contents;
    mode_t mode = 0644;
};

/** What write() does when the file exists. */
enum class Existing {
    Replaced,
    Kept ///< an existing file is not written
};

/** Bytes; larger files are refused. */
inline constexpr qint64 SizeLimit = 1024 * 1024;

/** Nothing when the path is no regular file or cannot be read. A missing file is no error. */
std::optional<State> read(const QString &path, QString *errorText = nullptr);
/** True also when an existing file was kept on request. */
bool write(const QString &path,
           const QByteArray &contents,
           mode_t mode = 0644,
           Existing existing = Existing::Replaced,
           QString *errorText = nullptr);
/**
 * Writes a new file into a folder that others can write. An old file of ours or a link at the path is deleted first.
 */
bool writeStaging(const QString &path, const QByteArray &contents, QString *errorText = nullptr);
/** True also when there is no such file. */
bool remove(const QString &path, QString *errorText = nullptr);
/** Creates a folder that everybody can read. True also when it already exists. */
bool makeFolder(const QString &path, QString *errorText = nullptr);
/** True also when the folder does not exist or is not empty. */
bool removeEmptyFolder(const QString &path, QString *errorText = nullptr);
/** Restores a result of read(). */
bool restore(const QString &path, const State &state, QString *errorText = nullptr);
} // namespace SystemFile
