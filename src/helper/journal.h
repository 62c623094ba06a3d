// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Messages to the administrator: lines on the error output, which the system's journal stores. */
namespace Journal
{
/** Numbers of sd-daemon(3). */
enum Priority { Error = 3, Warning = 4, Notice = 5, Info = 6 };

/** Writes one line; `text` may contain any characters. Any thread may call it. */
void write(Priority priority, const QString &text);
/** `text` in quotes. A long text is cut, and every character with a special meaning is escaped. */
QString quoted(const QString &text);
/** Sends all further messages of the libraries to the journal too. */
void takeMessages();
} // namespace Journal
