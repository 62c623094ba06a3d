// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/help.h"

#include "platform/desktopintegration.h"
#include "platform/ui/helpwindow.h"

#include <QPointer>
#include <QUrl>

bool veltHelpShow(QWidget *parent, const QString &page)
{
    static QPointer<HelpWindow> window;

    const QString place = QStringLiteral("velt-admin-repo/help/%1/index.html");
    QString contents = veltDataFile(place.arg(veltLanguage()));
    if (contents.isEmpty())
        contents = veltDataFile(place.arg(QStringLiteral("en")));
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
