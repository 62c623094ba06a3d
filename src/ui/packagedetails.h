// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** How the fields of a package record are shown. */
namespace PackageDetails
{
/**
 * The description as rich text: the synopsis in bold, one line a line, and an empty line where the description has a
 * line with a lone dot. The text itself is shown as it stands, whatever characters it holds.
 */
QString descriptionHtml(const QString &description);
} // namespace PackageDetails
