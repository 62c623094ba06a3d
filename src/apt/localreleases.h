// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

/** The sources on this computer, which can change at any time without a word. */
namespace LocalReleases
{
/**
 * A digest of the release files of those of the sources that are folders of this computer. As long as it is the same,
 * apt would find nothing new in them. Nothing when one of them has no release file or cannot be looked at.
 */
std::optional<QByteArray> digest(const QStringList &sources);
} // namespace LocalReleases
