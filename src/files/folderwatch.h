// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

class Descriptor;
class QSocketNotifier;

/**
 * Reports when something is created, replaced, written or deleted in one of a few folders. The folders are looked up on
 * the thread pool, because their disk may not answer. Deeper folders are not watched, and changes by other machines in
 * a network file system are not seen.
 */
class FolderWatch : public QObject
{
    Q_OBJECT
public:
    explicit FolderWatch(QObject *parent = nullptr);
    ~FolderWatch() override;

    /** Watches these folders and no others. Folders that do not exist are left out. */
    void watch(const QStringList &folders);

Q_SIGNALS:
    /** The folders of the last watch() are watched from now on. */
    void watching();
    /** Comes many times while a program works there. */
    void changed();

private:
    void take(const std::shared_ptr<const Descriptor> &descriptor);

    std::shared_ptr<const Descriptor> m_descriptor; ///< outlives m_notifier
    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_watches = 0; ///< calls of watch() so far
};
