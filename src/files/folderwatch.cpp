// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/folderwatch.h"

#include "core/runinbackground.h"
#include "files/descriptor.h"

#include <QFile>
#include <QSocketNotifier>

#include <array>
#include <cstdint>

#include <sys/inotify.h>
#include <unistd.h>

namespace
{
Descriptor watched(const QStringList &folders)
{
    constexpr std::uint32_t Changes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE
                                      | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    Descriptor inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    for (const QString &folder : folders)
        ::inotify_add_watch(inotify.number(), QFile::encodeName(folder).constData(), Changes);
    return inotify;
}
} // namespace

FolderWatch::FolderWatch(QObject *parent)
    : QObject(parent)
{ }

FolderWatch::~FolderWatch() = default;

void FolderWatch::watch(const QStringList &folders)
{
    const int number = ++m_watches;
    const auto open = [folders] { return std::make_shared<const Descriptor>(watched(folders)); };
    runInBackground(this, open, [this, number](const std::shared_ptr<const Descriptor> &descriptor) {
        if (number == m_watches)
            take(descriptor);
    });
}

void FolderWatch::take(const std::shared_ptr<const Descriptor> &descriptor)
{
    m_notifier.reset();
    m_descriptor = descriptor;
    // It can be closed: the system limits the number of these descriptors for each user.
    if (m_descriptor->isOpen()) {
        m_notifier = std::make_unique<QSocketNotifier>(m_descriptor->number(), QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
            // The events are read only to empty the queue. It does not matter which file changed.
            std::array<char, 4096> events{};
            while (::read(m_descriptor->number(), events.data(), events.size()) > 0) { }
            Q_EMIT changed();
        });
    }
    Q_EMIT watching();
}
