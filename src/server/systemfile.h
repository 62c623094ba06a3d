// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

#include <sys/types.h>

/**
 * Reads and changes single files of the system the way a program with root's rights has to: no link is followed in
 * the last two parts of a path, nothing but regular files is touched, and whoever reads meanwhile or after a crash
 * finds the old file or the new one, never a part. Errors come as a sentence in `errorText` where one is given.
 */
namespace SystemFile
{
/** What is at a path. */
struct State
{
    bool exists = false;
    QByteArray contents;
    mode_t mode = 0644;
};

enum class Existing {
    Replaced,
    Kept ///< then nothing is written
};

/** Bytes; a file that is larger is not one that we deal with. */
inline constexpr qint64 SizeLimit = 1024 * 1024;

/** Nothing when there is something else than a regular file, or one that cannot be read; no file is no error. */
std::optional<State> read(const QString &path, QString *errorText = nullptr);
/** Also true when an existing file was to be kept and has been. */
bool write(const QString &path,
           const QByteArray &contents,
           mode_t mode = 0644,
           Existing existing = Existing::Replaced,
           QString *errorText = nullptr);
/** Writes a new file into a folder in which others may write too; one of ours or a link that is there goes first. */
bool writeStaging(const QString &path, const QByteArray &contents, QString *errorText = nullptr);
/** Also true when there is no such file. */
bool remove(const QString &path, QString *errorText = nullptr);
/** Makes a folder that everybody may read; also true when there is one. */
bool makeFolder(const QString &path, QString *errorText = nullptr);
/** Also true when it is not there or not empty. */
bool removeEmptyFolder(const QString &path, QString *errorText = nullptr);
/** Brings back what read() has found. */
bool restore(const QString &path, const State &state, QString *errorText = nullptr);
} // namespace SystemFile
