// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Texts about publications. */
namespace PublicationText
{
/** The name of the server type; empty for a local directory. */
QString serverType(int protocol);
/** The address of a repository for clients, such as "http://192.168.0.10:8000/". */
QString address(int protocol, const QString &host, int port);
/** Text for the state of a service that serves a repository. */
QString state(const QString &serviceState);
} // namespace PublicationText
