// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

/**
 * Shows the contents of an archive as a folder: archivemount mounts the archive at mountPoint(). This folder belongs to
 * the user and serves one import at a time. The destructor unmounts the archive and deletes the folder.
 */
class ArchiveUtils : public ProcessUtils
{
    Q_OBJECT
public:
    using ProcessUtils::ProcessUtils;
    ~ArchiveUtils() override;

    /** Emits error() on failure. Mounting can succeed even for a damaged archive or one without files. */
    bool mount(const QString &archive);
    /** Emits error() on failure. True also when nothing is mounted. */
    bool umount();

    /** Below /tmp, or below the user's runtime folder when another user owns the folder in /tmp. */
    QString mountPoint() const;
    /** Removes the mount that a killed import has left. Does nothing while another import is running. */
    static void removeLeftover();

private:
    QString m_parent = usualParent();
    int m_lock = -1; ///< descriptor of the folder above the mount point
    bool m_mounted = false;

    static QString usualParent();
    QString mountFolder() const;
    /** 0, or the error number when the folder above the mount point could not be opened and locked. */
    int lockParent();
    QString prepareMountPoint();
    void removeMountPoint();
    QString troubleWith(const QString &program, const QString &package) const;
    bool unmountNow();
    void releaseLock();
};
