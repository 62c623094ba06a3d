// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"
#include "engine/reprepro/joblock.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * Moves a repository to another file system, where renaming is not possible. The repository is copied to a folder
 * beside its new place, and the copy is compared and synced. The complete copy is renamed to the new place, and only
 * then the original is deleted. So after a kill at any time, at least one of the places has a whole repository. An
 * incomplete copy has a name of its own, and the next attempt replaces it.
 */
class RepositoryCopy
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    RepositoryCopy(QString from, const QString &to);
    /** Deletes a copy that was not moved to its place. */
    ~RepositoryCopy();
    RepositoryCopy(const RepositoryCopy &) = delete;
    RepositoryCopy &operator=(const RepositoryCopy &) = delete;

    /** Steps of make() that are known in advance. */
    int stepCount() const;
    /** Makes the copy; `stepsDone` receives the number of new steps. False after a failure or a stop; see error(). */
    bool make(const std::function<bool()> &stopped, const std::function<void(int)> &stepsDone);
    /**
     * Moves the copy to its place, which must be free. No job can use it before this object is deleted. False, see
     * error(), also when another program has changed the original's database meanwhile.
     */
    bool takePlace();
    /** Syncs the copy and deletes the original; false when a part is left at leftAt(). */
    bool removeOriginal();
    /** Deletes the copy at its new place. */
    void undo();

    /** Error text of the programs; empty after a stop. */
    QString error() const { return m_error; }
    QString leftAt() const { return m_leftAt; }

private:
    QString m_from;
    QString m_to;
    QString m_partial; ///< path of the copy until it is moved to its place
    QString m_error;
    QString m_leftAt;
    QStringList m_database; ///< state of the original's database at the beginning
    JobLock m_lock; ///< lock of the copy
    int m_folder = -1; ///< descriptor of the incomplete copy's folder; holds its lock

    QStringList databaseState() const;
    /** Sets the error when another program has changed the original. */
    bool isUntouched();
    bool makeFolder();
    bool runStep(const ProcessCall &call);
};
