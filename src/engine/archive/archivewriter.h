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
 * Writes a .tgz archive. commit() replaces the target with the complete archive. Until then the old target stays, also
 * when the object is deleted without commit(). Not for the interface thread.
 */
class ArchiveWriter
{
    Q_DECLARE_TR_FUNCTIONS(ArchiveWriter)
public:
    /** Called several times while a file is copied; true cancels the file. */
    using StopRequest = std::function<bool()>;
    enum class Result { Added, Stopped, Failed };

    explicit ArchiveWriter(const QString &target, StopRequest stopped);
    ~ArchiveWriter();
    ArchiveWriter(const ArchiveWriter &) = delete;
    ArchiveWriter &operator=(const ArchiveWriter &) = delete;

    /** False when the target cannot be written, see error(). */
    bool open();
    /**
     * Adds a regular file or a symbolic link, with its mode, owner and time. After a result other than Added, no more
     * files can be added. After Stopped the archive can still be committed; it lacks only this file. Small files are
     * never stopped. With `judged`, the path must still name that file.
     */
    Result add(const QString &file, const QString &member, const std::optional<FileId> &judged = {});
    /** Adds a file that exists only in the archive. */
    Result addText(const QByteArray &text, const QString &member);
    /** Completes the archive and replaces the target. */
    bool commit();
    /** The last error, with the file name and the error text of the system. */
    QString error() const { return m_error; }

    /** Most bytes of one member. */
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
