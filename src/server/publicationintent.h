// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

/**
 * A change of what is published, written down before it begins. Whoever finds it undoes a publication, with the state
 * from before, and finishes an unpublication.
 *
 * As a file it is text of one value a line, in a fixed order, that ends in the line "end intent". The contents of files
 * are in base64.
 */
struct PublicationIntent
{
    enum Kind { Publish, Unpublish };

    Kind kind = Publish;
    int protocol = 0; ///< 0 HTTP, 1 FTP
    int port = 0;
    QString path; ///< of the directory that is published
    PublicationState before; ///< of publishing

    QByteArray text() const;
    /** Nothing when the text is not exactly what text() gives for values that are allowed. */
    static std::optional<PublicationIntent> read(const QByteArray &text);
};
