// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/**
 * The key with which this machine's apt checks a repository. It has a file of its own, and the source line names this
 * file. The key is read as RFC 4880 defines it. The rules accept exactly one key and nothing else.
 */
namespace SourceKey
{
/** The folder for apt's keys of single sources, see sources.list(5). */
inline const QString Folder = QStringLiteral("/etc/apt/keyrings");
/** Most bytes of an armored key. A key without signatures of other people has a few thousand. */
inline constexpr int MostBytes = 64 * 1024;

/** Whether the text is a fingerprint as gpg writes it: 40 hexadecimal digits with capital letters. */
bool isFingerprint(const QString &text);
/** The file for the key with this fingerprint. */
QString file(const QString &fingerprint);
/** The fingerprint in the path of such a file; empty for any other path. */
QString fingerprintIn(const QString &path);

/**
 * The fingerprint of the key in `armor`. The armor must hold one public key of version 4 with its user ids, subkeys and
 * signatures, in ASCII armor without headers, and nothing else. Empty for any other text.
 */
QString fingerprint(const QByteArray &armor);
} // namespace SourceKey
