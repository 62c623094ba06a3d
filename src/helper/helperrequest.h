// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

/** A request for work with root's rights, as the caller has sent it: nothing in it may be trusted. */
struct HelperRequest
{
    enum Method { AddLocalSource, RemoveLocalSource, PublishRepo, UnpublishRepo, AddSignedLocalSource };

    Method method = AddLocalSource;
    QString entry; ///< for the methods about sources
    QString path; ///< for PublishRepo
    int port = 0; ///< for the methods about publishing
    int protocol = 0; ///< for the methods about publishing
    QString key = {}; ///< for AddSignedLocalSource, in ASCII armor

    /** The method with this name on the bus. The name must be a known one. */
    static Method methodOf(const char *name);
    /** The polkit action that the caller must be authorised for. */
    QString action() const;
    /** The arguments by name, for the password dialog and for the journal. */
    QMap<QString, QString> arguments() const;
    /** One line about the whole request; all characters that are not plain text are escaped. */
    QString describe() const;
};

/** The result of a request. */
struct HelperOutcome
{
    /** The numbers are part of the bus interface. */
    enum Kind {
        Done = 0,
        Invalid = 1, ///< the request itself is not acceptable
        Refused = 2, ///< the caller is not authorised
        Failed = 3, ///< the work was begun and failed
        TooLate = 4 ///< the work was not begun in time
    };

    Kind kind = Failed;
    QString reason; ///< a sentence; empty for Done
};
