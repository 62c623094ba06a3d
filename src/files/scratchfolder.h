// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/**
 * A new, private folder, usually below the system's temporary folder; it goes with the object. It is locked as long as
 * the object lives, so that what a killed program has left behind can be told from what is in use.
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

    /** Whether nobody else can put another folder in the place of one that is made there. */
    static bool isSafePlace(const QString &parent);
    /**
     * Deletes the user's scratch folders below `parent` that nobody uses any more: neither a program that holds their
     * lock nor one that was started with their name and has outlived it. Reads all of /proc: not for the interface
     * thread.
     */
    static void removeLeftovers(const QString &parent = QDir::tempPath());

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    int m_lock = -1; ///< descriptor of the folder
};
