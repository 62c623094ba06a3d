// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/**
 * A new, private folder, usually below the system's temporary folder. The destructor deletes it. The folder is locked
 * while the object lives; a folder without a lock was left by a killed program.
 */
class ScratchFolder
{
public:
    explicit ScratchFolder(const QString &parent = QDir::tempPath());
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder &operator=(const ScratchFolder &) = delete;

    /** False when the folder could not be made. */
    bool isValid() const { return m_folder != nullptr; }
    /** Empty when the folder could not be made. */
    QString path() const { return m_folder ? m_folder->path() : QString(); }
    QString filePath(const QString &name) const { return m_folder ? m_folder->filePath(name) : QString(); }

    /** Whether no other user can replace a folder that is created in `parent`. */
    static bool isSafePlace(const QString &parent);
    /**
     * Deletes the user's scratch folders below `parent` that are no longer in use. A folder is in use while a program
     * holds its lock, or while a process that was started with its path still runs. Reads all of /proc: not for the
     * interface thread.
     */
    static void removeLeftovers(const QString &parent = QDir::tempPath());

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    int m_lock = -1; ///< descriptor of the folder; holds the lock
};
