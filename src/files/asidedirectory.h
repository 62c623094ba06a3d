// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Moves a directory aside to make room for another directory. It gets a free name beside its place, and is deleted only
 * after the other directory has arrived. Until then it can be put back.
 */
class AsideDirectory
{
public:
    /** Moves the directory at `path` aside. It is no error when nothing is there. See error(). */
    explicit AsideDirectory(const QString &path);
    AsideDirectory(const AsideDirectory &) = delete;
    AsideDirectory &operator=(const AsideDirectory &) = delete;

    /** Why the directory could not be moved, as the system says it; empty when the place is free. */
    QString error() const { return m_error; }
    /** Moves the directory back to its place, which must be free again. */
    void putBack();
    /** Deletes the directory; a link itself, not its target. False when a part of it is left at place(). */
    bool remove();
    /** Where the directory is meanwhile; empty when there was no directory. */
    QString place() const { return m_place; }

    /** Calls rename(2). Returns the error text of the system; empty on success. */
    static QString rename(const QString &from, const QString &to);

private:
    QString m_path;
    QString m_place;
    QString m_error;
};
