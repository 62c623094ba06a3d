// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"
#include "engine/reprepro/joblock.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * Moves a repository to another file system, where it cannot just be renamed: it is copied beside its new place, the
 * copy is compared and written out, takes the place when it is complete, and only then the original goes. Killed at any
 * moment it leaves a whole repository at one of the places at least. An incomplete copy lies under a name of its own,
 * and the next one takes its room.
 */
class RepositoryCopy
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    RepositoryCopy(QString from, const QString &to);
    /** Deletes a copy that has not taken its place. */
    ~RepositoryCopy();
    RepositoryCopy(const RepositoryCopy &) = delete;
    RepositoryCopy &operator=(const RepositoryCopy &) = delete;

    /** Steps of make() that are known beforehand. */
    int stepCount() const;
    /** Makes the copy; `stepsDone` gets how many more steps are done. False after a failure or a stop; see error(). */
    bool make(const std::function<bool()> &stopped, const std::function<void(int)> &stepsDone);
    /**
     * The copy takes its place, which is free. No job gets at it before this object goes. False, see error(), also when
     * another program has changed the original's database meanwhile.
     */
    bool takePlace();
    /** Writes the copy out and deletes the original; false when something is left at leftAt(). */
    bool removeOriginal();
    /** Deletes the copy that has taken its place. */
    void undo();

    /** Why something failed, in the words of the system's programs; empty after a stop. */
    QString error() const { return m_error; }
    QString leftAt() const { return m_leftAt; }

private:
    QString m_from;
    QString m_to;
    QString m_partial; ///< the copy until it takes its place
    QString m_error;
    QString m_leftAt;
    QStringList m_database; ///< the state of the original's database at the beginning
    JobLock m_lock; ///< of the copy
    int m_folder = -1; ///< of the incomplete copy, locked

    QStringList databaseState() const;
    /** Sets the error when another program has changed the original. */
    bool isUntouched();
    bool makeFolder();
    bool runStep(const ProcessCall &call);
};
