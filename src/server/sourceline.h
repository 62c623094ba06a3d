// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

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
    QString directory; ///< absolute path as the line has it, see inLine(); used for a local directory only
    QString codename;
    QString components; ///< separated by blanks
    QString signedBy = {}; ///< file with the key that apt checks the repository with; empty: all that apt has
    bool copied = false; ///< apt copies what it needs out of the local directory before it uses it

    /** A path as apt reads it in a line, where a blank would end it. */
    static QString inLine(const QString &path);
    /** The path that `directory` means. */
    QString path() const;
    /** The line, without a line end. */
    QString text() const;
    /**
     * Reads what is said of a binary repository over these protocols, also by a line that was written by hand, see
     * sources.list(5). A port that is not named is the usual one. Nothing for any other line.
     */
    static std::optional<SourceLine> parse(const QString &line);

private:
    QString options() const;
    void readOptions(const QString &text);
    bool readUri(const QString &text);
};
