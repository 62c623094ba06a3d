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
 * A folder that was opened once. Every answer is about that folder, also when another one, or a link, lies at its path
 * by then: what somebody else may exchange cannot be asked about by its name twice.
 */
class OpenFolder
{
public:
    enum Links { FollowNone, Follow };
    struct File
    {
        QByteArray contents;
        struct stat status = {};
    };

    OpenFolder() = default;
    /** Follows links, since a path that the user gives may hold some. See isOpen(). */
    explicit OpenFolder(const QString &path);

    bool isOpen() const { return m_descriptor.isOpen(); }
    /** The folder `name` in this one; not open when there is none. */
    OpenFolder folder(const QByteArray &name, Links links = FollowNone) const;
    /** Of the folder itself, or of an entry, which of a link is the link. Nothing when it cannot be had. */
    std::optional<struct stat> status() const;
    std::optional<struct stat> statusOf(const QByteArray &name) const;
    /** Where the link `name` leads; null when it is none. */
    QByteArray linkTarget(const QByteArray &name) const;
    /** The names of the entries, sorted. */
    QList<QByteArray> names() const;
    /**
     * A regular file of at most `limit` bytes; `name` may lie in folders below. Nothing for all else: a pipe or a
     * device is not waited for. Without links only the last part of the name is meant.
     */
    std::optional<File> read(const QByteArray &name, qint64 limit, Links links = FollowNone) const;

    /** The same by the path of the file. */
    static std::optional<QByteArray> readFile(const QString &path, qint64 limit, Links links = FollowNone);

private:
    explicit OpenFolder(Descriptor descriptor)
        : m_descriptor(std::move(descriptor))
    { }

    Descriptor m_descriptor;
};
