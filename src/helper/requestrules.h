// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/helperrequest.h"

/** Which requests the helper takes at all. */
namespace RequestRules
{
/** Characters; a source line is far shorter. */
inline constexpr int LongestEntry = 1000;

/**
 * Why the request is not acceptable, as a sentence; empty when it is. Only its text counts: what the answer said
 * about the file system, a caller who is not authorised must not learn.
 */
QString problem(const HelperRequest &request);
/** The same for the line of a source: only what this program's own lines are made of passes. */
QString entryProblem(const QString &entry);
/** The file that a line which passes names for its key; empty when it names none. */
QString keyFile(const QString &entry);
} // namespace RequestRules
