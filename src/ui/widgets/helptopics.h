// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

class QDialog;

namespace HelpTopics
{
struct Topic
{
    const char *dialog; ///< name of its class
    const char *page; ///< as veltHelpShow() takes it
};

/** All dialogs that have a page of their own. */
const QList<Topic> &all();

/** The help page that tells about this dialog, or the nearest of those it is derived from. */
QString pageOf(const QDialog &dialog);
} // namespace HelpTopics
