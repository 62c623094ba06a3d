// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

/**
 * Copies a regular file. The copy replaces what is at `to` when it is complete; until then nothing there changes.
 * Returns the error text, which is empty on success, also when `stopped` has answered true and nothing was written. Not
 * for the interface thread.
 */
QString copyFile(const QString &from, const QString &to, const std::function<bool()> &stopped);
