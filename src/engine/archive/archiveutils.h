// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

/**
 * Shows what is in an archive as a folder: mounts it with archivemount at mountPoint(), which is the user's own and
 * serves one import at a time. What is mounted when the object goes is unmounted, and the folder goes with it.
 */
class ArchiveUtils : public ProcessUtils
{
    Q_OBJECT
public:
    using ProcessUtils::ProcessUtils;
    ~ArchiveUtils() override;

    /** Emits error() when it fails. An archive that holds no files, or is damaged, can succeed. */
    bool mount(const QString &archive);
    /** Emits error() when it fails; without anything mounted it succeeds. */
    bool umount();

    /** Below /tmp, or below the user's runtime folder when another user has taken that place. */
    QString mountPoint() const;
    /** Takes away the mount that a killed import has left. Nothing happens while another one runs. */
    static void removeLeftover();

private:
    QString m_parent = usualParent();
    int m_lock = -1; ///< descriptor of the folder above the mount point
    bool m_mounted = false;

    static QString usualParent();
    QString mountFolder() const;
    /** 0, or why the folder above the mount point could not be opened and locked. */
    int lockParent();
    QString prepareMountPoint();
    void removeMountPoint();
    QString troubleWith(const QString &program, const QString &package) const;
    bool unmountNow();
    void releaseLock();
};
