// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/** The child of this class and name. Without it the test program fails. */
template <typename Child>
Child *child(const QObject &parent, const char *name)
{
    auto *found = parent.findChild<Child *>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no %s", name);
    return found;
}
