// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** How the window speaks of publications. */
namespace PublicationText
{
/** The name of the server type; empty for a local directory. */
QString serverType(int protocol);
/** The address under which clients reach a repository, such as "http://192.168.0.10:8000/". */
QString address(int protocol, const QString &host, int port);
/** What a service's state means for the repository that it serves. */
QString state(const QString &serviceState);
/** What the administrator can do about an error that the privileged helper's client has described; empty: nothing. */
QString advice(const QString &description);
} // namespace PublicationText
