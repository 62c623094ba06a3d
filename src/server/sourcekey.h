// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/**
 * The key that this machine's apt checks a repository with: a file of its own, which the source line names. Its
 * contents are read as RFC 4880 has them, by rules that let nothing through but one key.
 */
namespace SourceKey
{
/** Where apt's keys of single sources lie, see sources.list(5). */
inline const QString Folder = QStringLiteral("/etc/apt/keyrings");
/** Bytes of an armored key; a key without others' signatures has a few thousand. */
inline constexpr int MostBytes = 64 * 1024;

/** Whether the text is that of a fingerprint as gpg writes it: 40 digits, letters in capitals. */
bool isFingerprint(const QString &text);
/** The file for the key with this fingerprint. */
QString file(const QString &fingerprint);
/** The fingerprint that such a file's path names; empty for any other path. */
QString fingerprintIn(const QString &path);

/**
 * The fingerprint of the key in `armor`, which must hold one public key of version 4 with its user ids, subkeys and
 * signatures, in ASCII armor without headers, and nothing else. Empty for everything that differs from that.
 */
QString fingerprint(const QByteArray &armor);
} // namespace SourceKey
