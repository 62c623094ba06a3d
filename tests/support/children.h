// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/** The child of this class and name; there is no going on without it. */
template <typename Child>
Child *child(const QObject &parent, const char *name)
{
    auto *found = parent.findChild<Child *>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no %s", name);
    return found;
}
