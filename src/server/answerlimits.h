// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

/**
 * How long a request to the privileged helper may take. The helper begins nothing that its caller may have given up: it
 * could not be finished while the caller still waits.
 */
namespace AnswerLimits
{
/** From the arrival of a request to the beginning of its work, with the time in which a password is typed. */
inline constexpr std::chrono::minutes Begin{5};
/** What the work takes at most: a job of the service manager that does not end in time, and another that undoes it. */
inline constexpr std::chrono::minutes Work{5};
/** What a caller waits. */
inline constexpr std::chrono::minutes Client = Begin + Work;
} // namespace AnswerLimits
