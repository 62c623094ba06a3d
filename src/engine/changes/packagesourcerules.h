// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/filechecksums.h"

#include <QByteArray>
#include <QString>

#include <optional>

/**
 * What `reprepro update` reads to take in package files as `reprepro includedeb` would: with the same records, byte for
 * byte, and the same places in the pool. What could come out differently is left to includedeb.
 */
namespace PackageSourceRules
{
/**
 * The record of a package in an index (Packages), with an empty line behind it. reprepro keeps it as it is, but for
 * Filename. `control` is the file's control file, `fileName` the path of the file below the source. Nothing when the
 * control file has another form than the one that the packaging tools write.
 */
std::optional<QByteArray>
record(const QByteArray &control, const FileChecksums &checksums, const QByteArray &fileName);

/**
 * The description of a repository (conf/distributions) in which the distribution has our source, and no other one.
 * Nothing when the distribution has settings by which updates differ from inclusions, or that are not known here.
 */
std::optional<QByteArray> description(const QByteArray &own, const QString &codename);

/** Whether the options in the text of conf/options are the same for updates and inclusions. */
bool areOptionsPlain(const QString &options);

/** The text of conf/updates for our source in a folder, whose path must be a plain one. */
QByteArray updates(const QString &folder, const QStringList &components, const QStringList &architectures);
/** Whether a path, component or architecture can stand in updates(). */
bool isPlain(const QString &word);
/** The index of a component and an architecture, as a path below the folder of updates(). */
QString index(const QString &component, const QString &architecture);
} // namespace PackageSourceRules
