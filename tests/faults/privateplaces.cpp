// SPDX-License-Identifier: GPL-3.0-or-later
#include "privateplaces.h"

#include <QDir>

#include <array>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** The folders from which the programs under test run. They may be below a folder that is covered by a mount. */
struct Tree
{
    const char *path;
    int number = ::open(path, O_PATH | O_DIRECTORY | O_CLOEXEC);

    bool show() const
    {
        const QByteArray held = "/proc/self/fd/" + QByteArray::number(number);
        return ::access(path, F_OK) == 0
               || (QDir().mkpath(QFile::decodeName(path))
                   && ::mount(held.constData(), path, nullptr, MS_BIND | MS_REC, nullptr) == 0);
    }
};
} // namespace

bool PrivatePlaces::enter()
{
    if (::geteuid() != 0 || ::unshare(CLONE_NEWNS) != 0)
        return false;
    const std::array trees{Tree{SOURCE_TREE}, Tree{BUILD_TREE}};
    const auto isMounted = [](const char *type, const char *place, const char *options) {
        return ::mount(type, place, type, MS_NOSUID | MS_NODEV, options) == 0;
    };
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
           && isMounted("tmpfs", "/srv", "mode=0755") && isMounted("tmpfs", "/tmp", "mode=1777")
           && isMounted("tmpfs", "/var/tmp", "mode=1777") && isMounted("tmpfs", "/dev/shm", "mode=1777")
           && trees[0].show() && trees[1].show();
}
