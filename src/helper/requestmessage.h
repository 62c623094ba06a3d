// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/helperrequest.h"

#include <systemd/sd-bus.h>

/** How a request comes over the bus. */
namespace RequestMessage
{
/**
 * Reads the arguments of one of the helper's methods, whose types the library has compared. A text that is longer than
 * any that is acceptable is not copied. Returns why the arguments are not taken, as a sentence; empty when they are.
 */
QString read(sd_bus_message *call, HelperRequest *request);
/** About the memory that an open request takes, in bytes. */
std::size_t sizeOf(const HelperRequest &request);
} // namespace RequestMessage
