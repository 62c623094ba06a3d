// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

/**
 * Time limits of a request to the privileged helper. The helper must not begin a request after its caller may have
 * given up. Therefore the caller waits as long as beginning and work can take together.
 */
namespace AnswerLimits
{
/** From the arrival of a request to the beginning of its work. The user types a password within this time. */
inline constexpr std::chrono::minutes Begin{5};
/** The longest time of the work: one job of the service manager that times out, and a second job that undoes it. */
inline constexpr std::chrono::minutes Work{5};
/** The time that a caller waits for the answer. */
inline constexpr std::chrono::minutes Client = Begin + Work;
} // namespace AnswerLimits
