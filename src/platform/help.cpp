// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/help.h"

#include "platform/desktopintegration.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace
{
class VeltHelp
{
    Q_DECLARE_TR_FUNCTIONS(VeltHelp)
};

void showInOwnWindow(QWidget *parent, const QUrl &page)
{
    auto *dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(VeltHelp::tr("Help"));
    dialog->resize(760, 560);
    auto *browser = new QTextBrowser(dialog);
    browser->setOpenExternalLinks(true);
    browser->setSource(page);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(browser);
    layout->addWidget(buttons);
    dialog->show();
}
} // namespace

bool veltHelpShow(QWidget *parent)
{
    const QString page = veltDataFile(QStringLiteral("velt-admin-repo/help/index.html"));
    if (page.isEmpty())
        return false;
    const QUrl url = QUrl::fromLocalFile(page);
    if (!QDesktopServices::openUrl(url))
        showInOwnWindow(parent, url);
    return true;
}
