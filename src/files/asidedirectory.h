// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * A directory that has to make room for another one. It is moved to a free name beside its place, and goes only when
 * the other one has arrived there; until then it can be put back.
 */
class AsideDirectory
{
public:
    /** Moves what lies at `path` aside; nothing there is fine too. See error(). */
    explicit AsideDirectory(const QString &path);
    AsideDirectory(const AsideDirectory &) = delete;
    AsideDirectory &operator=(const AsideDirectory &) = delete;

    /** Why the directory could not be moved, in the system's words; empty when its place is free. */
    QString error() const { return m_error; }
    /** Puts the directory back to its place, which must be free again. */
    void putBack();
    /** Deletes the directory; of a link the link alone. False when something of it is left at place(). */
    bool remove();
    /** Where the directory lies meanwhile; empty when there was none. */
    QString place() const { return m_place; }

    /** rename(2); the system's words for a failure, empty for a success. */
    static QString rename(const QString &from, const QString &to);

private:
    QString m_path;
    QString m_place;
    QString m_error;
};
