// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/** What the outer structure of a package file tells. */
enum class DebArchiveState {
    Whole,
    NoArchive, ///< not an ar archive of the kind that deb(5) describes
    Truncated ///< a member is longer than what is left of the file
};

/** A member of a package file. */
struct DebMember
{
    QByteArray name;
    qint64 position = 0; ///< of its contents in the file
    qint64 size = 0; ///< of its contents, bytes
};

/**
 * Looks at the members of a .deb or .udeb (an ar archive, deb(5)) without unpacking any. The packaging tools read
 * the control member alone, so a file whose download broke off inside the data member passes them unnoticed. `data`
 * becomes the member with the files of a whole package.
 */
DebArchiveState debArchiveState(const QString &fileName, DebMember *data = nullptr);
