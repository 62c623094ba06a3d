// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/** How a client reaches a repository. The settings store these numbers. */
enum PublicationProtocol {
    HttpProtocol = 0,
    FtpProtocol = 1,
    LocalDirectoryProtocol = 2 ///< this machine reads the directory itself, without a server
};

/** The parts of apt's one-line source of a repository. */
struct SourceLine
{
    bool trusted = false; ///< apt accepts the repository without a valid signature
    QString architectures; ///< separated by blanks; empty: the client's architectures
    int protocol = HttpProtocol; ///< any unknown number counts as HTTP
    QString host; ///< not used for a local directory
    int port = 0; ///< not used for a local directory
    QString directory; ///< absolute path in the form of the line, see inLine(); only for a local directory
    QString codename;
    QString components; ///< separated by blanks
    QString signedBy = {}; ///< file with the key for this repository; empty: apt uses all its keys
    bool copied = false; ///< apt copies the files from the local directory before it uses them

    /** A path in the form that a source line needs, where a blank would end the path. */
    static QString inLine(const QString &path);
    /** The path that `directory` stands for. */
    QString path() const;
    /** The line, without a line end. */
    QString text() const;
    /**
     * Reads a line for a binary repository over one of these protocols, also when it was written by hand, see
     * sources.list(5). When no port is named, it is the standard port of the protocol. Nothing for any other line.
     */
    static std::optional<SourceLine> parse(const QString &line);

private:
    QString options() const;
    void readOptions(const QString &text);
    bool readUri(const QString &text);
};
