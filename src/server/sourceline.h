// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** How a client reaches a repository. The numbers are stored in the settings. */
enum PublicationProtocol {
    HttpProtocol = 0,
    FtpProtocol = 1,
    LocalDirectoryProtocol = 2 ///< this machine reads the directory itself; nothing serves it
};

/** What apt's one-line source of a repository is made of. */
struct SourceLine
{
    bool trusted = false; ///< apt takes the repository without a valid signature
    QString architectures; ///< separated by blanks; empty: those of the client
    int protocol = HttpProtocol; ///< any unknown number counts as HTTP
    QString host; ///< not used for a local directory
    int port = 0; ///< not used for a local directory
    QString directory; ///< absolute path; used for a local directory only
    QString codename;
    QString components; ///< separated by blanks

    /** The line, without a line end. */
    QString text() const;

private:
    QString options() const;
};
