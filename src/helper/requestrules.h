// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/helperrequest.h"

/** Decides which requests the helper accepts. */
namespace RequestRules
{
/** Characters. Real source lines are far shorter. */
inline constexpr int LongestEntry = 1000;

/**
 * Returns a sentence that says why the request is not valid; empty when it is valid. Checks the text only: a caller
 * without authorisation must learn nothing about the file system.
 */
QString problem(const HelperRequest &request);
/** The same for a source line. Only lines in the form of this program's own lines are valid. */
QString entryProblem(const QString &entry);
/** The key file that a valid line names; empty when it names none. */
QString keyFile(const QString &entry);
} // namespace RequestRules
