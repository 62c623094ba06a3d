// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>

#ifdef VELT_TSAN
extern "C" {
void veltTsanBeforeDelivery();
void veltTsanAfterDelivery();
}
#endif

/** The application object of a test. It tells the thread sanitizer about events that carry data between threads. */
template <typename Application>
class TestApplication : public Application
{
public:
    using Application::Application;

#ifdef VELT_TSAN
    bool notify(QObject *receiver, QEvent *event) override
    {
        veltTsanBeforeDelivery();
        const bool handled = Application::notify(receiver, event);
        veltTsanAfterDelivery();
        return handled;
    }
#endif
};
