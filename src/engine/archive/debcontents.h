// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/debarchive.h"

#include <QString>

#include <functional>

/** What unpacking the files of a package has shown. */
enum class DebContentsState {
    Whole,
    Damaged, ///< they cannot be unpacked
    Unknown, ///< packed in a way that is not known here, or the reading was stopped
};

/**
 * Unpacks the data member of a package to nowhere, in this process. Bytes that were changed on the way show in the
 * checksums of the compression and in the headers of the archive; the packaging tools would find them at the
 * installation. Reads the whole member: not for the interface thread.
 */
DebContentsState
debContentsState(const QString &fileName, const DebMember &data, const std::function<bool()> &stopped = {});
