// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/help.h"

#include "platform/desktopintegration.h"
#include "platform/helpwindow.h"

#include <QPointer>
#include <QUrl>

bool veltHelpShow(QWidget *parent, const QString &page)
{
    static QPointer<HelpWindow> window;

    const QString contents = veltDataFile(QStringLiteral("velt-admin-repo/help/index.html"));
    if (contents.isEmpty())
        return false;
    if (window == nullptr || !window->isVisible())
        window = new HelpWindow;
    window->moveTo(parent);
    window->showPage(QUrl::fromLocalFile(contents).resolved(QUrl(page)));
    window->show();
    window->raise();
    window->activateWindow();
    return true;
}
