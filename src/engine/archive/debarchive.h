// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/** State of the outer structure of a package file. */
enum class DebArchiveState {
    Whole,
    NoArchive, ///< not an ar archive as in deb(5)
    Truncated ///< a member extends beyond the end of the file
};

/** A member of a package file. */
struct DebMember
{
    QByteArray name;
    qint64 position = 0; ///< position of its contents in the file
    qint64 size = 0; ///< size of its contents in bytes
};

/**
 * Checks the members of a .deb or .udeb (an ar archive, deb(5)) without unpacking them. The packaging tools read only
 * the control member, so they do not notice a download that ended within the data member. When the package is whole,
 * `data` receives its member with the files, and `control` the one with the control files.
 */
DebArchiveState
debArchiveState(const QString &fileName, DebMember *data = nullptr, DebMember *control = nullptr);
