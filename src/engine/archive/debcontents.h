// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/debarchive.h"

#include <QString>

#include <functional>

/** Result of unpacking the files of a package. */
enum class DebContentsState {
    Whole,
    Damaged, ///< the files cannot be unpacked
    Unknown, ///< the compression is not supported, or reading was stopped
};

/**
 * Unpacks the data member of a package in this process, without writing it. Changed bytes violate the checksums of the
 * compression or the headers of the archive. The packaging tools would notice them only during installation. Reads the
 * whole member: not for the interface thread.
 */
DebContentsState
debContentsState(const QString &fileName, const DebMember &data, const std::function<bool()> &stopped = {});
