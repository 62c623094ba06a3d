// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/descriptor.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

#include <sys/stat.h>

/**
 * A folder that was opened once. Every answer is about this folder, even if its path names another folder or a link by
 * then. Somebody else can exchange the folder between two questions, so its path is used only once.
 */
class OpenFolder
{
public:
    enum Links { FollowNone, Follow };
    /** The contents and the status of a file. */
    struct File
    {
        QByteArray contents;
        struct stat status = {};
    };

    OpenFolder() = default;
    /** Follows links, because the user's path may contain links. See isOpen(). */
    explicit OpenFolder(const QString &path);

    bool isOpen() const { return m_descriptor.isOpen(); }
    /** For calls of the system; open for reading, and closed with this object. */
    int descriptor() const { return m_descriptor.number(); }
    /** The folder `name` in this folder; not open when there is no such folder. */
    OpenFolder folder(const QByteArray &name, Links links = FollowNone) const;
    /** Status of the folder itself, or of one entry. A link is not followed. Nothing on failure. */
    std::optional<struct stat> status() const;
    std::optional<struct stat> statusOf(const QByteArray &name) const;
    /** The target of the link `name`; null when it is no link. */
    QByteArray linkTarget(const QByteArray &name) const;
    /** The names of the entries, sorted. */
    QList<QByteArray> names() const;
    /**
     * Reads a regular file of at most `limit` bytes; `name` may contain folders below this one. Nothing for any other
     * file: a pipe or a device is not waited for. FollowNone applies to the last part of the name only.
     */
    std::optional<File> read(const QByteArray &name, qint64 limit, Links links = FollowNone) const;

    /** The same with the path of the file. */
    static std::optional<QByteArray> readFile(const QString &path, qint64 limit, Links links = FollowNone);

private:
    explicit OpenFolder(Descriptor descriptor)
        : m_descriptor(std::move(descriptor))
    { }

    Descriptor m_descriptor;
};

/** Whether the open folder is still the folder at `path`. A link at that path is not the folder. */
bool isFolderAt(int folder, const QString &path);
