// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

/** What a caller wants done with root's rights, in its own words: nothing of it may be trusted. */
struct HelperRequest
{
    enum Method { AddLocalSource, RemoveLocalSource, PublishRepo, UnpublishRepo, AddSignedLocalSource };

    Method method = AddLocalSource;
    QString entry; ///< of those for sources
    QString path; ///< of PublishRepo
    int port = 0; ///< of the two for publishing
    int protocol = 0; ///< of the two for publishing
    QString key = {}; ///< of AddSignedLocalSource, in ASCII armor

    /** The method with this name on the bus, which must be one of them. */
    static Method methodOf(const char *name);
    /** The action that the caller has to be authorised for. */
    QString action() const;
    /** The arguments by name, as the question for the password and the journal show them. */
    QMap<QString, QString> arguments() const;
    /** One line that tells the whole request; everything in it that is not plain text is escaped. */
    QString describe() const;
};

/** What became of a request. */
struct HelperOutcome
{
    /** The numbers go over the bus. */
    enum Kind {
        Done = 0,
        Invalid = 1, ///< the request itself is not acceptable
        Refused = 2, ///< the caller is not authorised
        Failed = 3, ///< it was tried
        TooLate = 4 ///< it was not begun in time
    };

    Kind kind = Failed;
    QString reason; ///< a sentence; empty when done
};
