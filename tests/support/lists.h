// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/literals.h"

#include <QStringList>

/** "a|b"_list is a list of UTF-8 texts. */
inline QStringList operator""_list(const char *text, std::size_t size)
{
    return QString::fromUtf8(text, static_cast<int>(size)).split(u'|');
}
