// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QObject>

// Qt itself is not built for the thread sanitizer, so it sees neither Qt's locks nor that what happened before an
// event was posted happened before its delivery. These functions, and replacements of a few of Qt's own beside them,
// tell it. In any other build there is nothing to tell.
#ifdef VELT_THREAD_SANITIZER
void noteDelivery();
void noteDelivered();
#else
inline void noteDelivery() { }
inline void noteDelivered() { }
#endif

/** An application of a test program whose event deliveries the thread sanitizer can follow. */
template <class Application>
class ObservedApplication : public Application
{
public:
    using Application::Application;

    bool notify(QObject *receiver, QEvent *event) override
    {
        noteDelivery();
        const bool result = Application::notify(receiver, event);
        noteDelivered();
        return result;
    }
};
