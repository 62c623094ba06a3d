// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/gzipdevice.h"
#include "files/replacingfile.h"
#include "files/trustedpath.h"

#include <QCoreApplication>
#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

#include <sys/types.h>

class KTar;

/**
 * Writes a .tgz archive. The archive takes its target's place when commit() says that it is complete; until then, and
 * when the object goes without it, what lay there before stays. Not for the interface thread.
 */
class ArchiveWriter
{
    Q_DECLARE_TR_FUNCTIONS(ArchiveWriter)
public:
    /** Asked several times while a file is copied; true gives the file up. */
    using StopRequest = std::function<bool()>;
    enum class Result { Added, Stopped, Failed };

    explicit ArchiveWriter(const QString &target, StopRequest stopped);
    ~ArchiveWriter();
    ArchiveWriter(const ArchiveWriter &) = delete;
    ArchiveWriter &operator=(const ArchiveWriter &) = delete;

    /** False when the target cannot be written, see error(). */
    bool open();
    /**
     * Adds a regular file, or a symbolic link as such, with its mode, owner and time. After anything but Added the
     * archive takes no more files. One that was stopped can still be committed and lacks that file alone; small files
     * are never stopped. With `judged` the path has to name this file still.
     */
    Result add(const QString &file, const QString &member, const std::optional<FileId> &judged = {});
    /** Adds a file that the archive alone has. */
    Result addText(const QByteArray &text, const QString &member);
    /** Completes the archive and puts it into the target's place. */
    bool commit();
    /** What went wrong, with the file's name and the system's words. */
    QString error() const { return m_error; }

    /** Bytes that a member can have at most. */
    static constexpr qint64 LargestMember = 077777777777; // eleven octal digits

private:
    struct Source;

    Result addFile(Source *opened, const QString &member);
    Result addLink(const Source &source, const QString &member);
    Result failed(const QString &file, const QString &reason);
    static QString changed();
    QString userName(uid_t id);
    QString groupName(gid_t id);

    StopRequest m_stopped;
    QString m_target;
    ReplacingFile m_file;
    std::unique_ptr<GzipDevice> m_device;
    std::unique_ptr<KTar> m_tar;
    QHash<uid_t, QString> m_users;
    QHash<gid_t, QString> m_groups;
    QByteArray m_buffer;
    QString m_error;
};
