// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

class QDialog;

/** The help pages of the dialogs. */
namespace HelpTopics
{
struct Topic
{
    const char *dialog; ///< class name of the dialog
    const char *page; ///< argument for veltHelpShow()
};

/** All dialogs that have a help page. */
const QList<Topic> &all();

/** The help page for this dialog, or for its nearest base class that has one. */
QString pageOf(const QDialog &dialog);
} // namespace HelpTopics
