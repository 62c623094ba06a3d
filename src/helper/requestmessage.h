// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/helperrequest.h"

#include <systemd/sd-bus.h>

/** Reads requests from messages of the bus. */
namespace RequestMessage
{
/**
 * Reads the arguments of one of the helper's methods. The library has already checked their types. A text that is
 * longer than any valid text is not copied. Returns a sentence about the problem; empty when the arguments are
 * accepted.
 */
QString read(sd_bus_message *call, HelperRequest *request);
/** The approximate memory of an open request, in bytes. */
std::size_t sizeOf(const HelperRequest &request);
} // namespace RequestMessage
