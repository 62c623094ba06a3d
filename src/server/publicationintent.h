// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

/**
 * A planned change of a publication, written to a file before the change begins. If the helper finds the file later, it
 * undoes a publication with the state from before, or completes an unpublication.
 *
 * The file is text in a fixed order, with one value on each line. Its last line is "end intent". Contents of files are
 * encoded in base64.
 */
struct PublicationIntent
{
    enum Kind { Publish, Unpublish };

    Kind kind = Publish;
    int protocol = 0; ///< 0 HTTP, 1 FTP
    int port = 0;
    QString path; ///< directory to publish; empty for Unpublish
    PublicationState before; ///< only for Publish

    /** The content of the file. */
    QByteArray text() const;
    /** Reads the text. Nothing unless it is exactly what text() gives for valid values. */
    static std::optional<PublicationIntent> read(const QByteArray &text);
};
