// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** What the helper tells the administrator: lines of its error output that the system's journal takes in. */
namespace Journal
{
/** Numbers of sd-daemon(3). */
enum Priority { Error = 3, Warning = 4, Notice = 5, Info = 6 };

/** Writes one line, whatever `text` holds; usable on any thread. */
void write(Priority priority, const QString &text);
/** `text` in quotes, cut when it is long, with everything escaped that could pass for something else. */
QString quoted(const QString &text);
/** From now on the messages of the libraries go the same way. */
void takeMessages();
} // namespace Journal
