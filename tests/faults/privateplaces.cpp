// SPDX-License-Identifier: GPL-3.0-or-later
#include "privateplaces.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

bool PrivatePlaces::enter()
{
    if (::geteuid() != 0 || ::unshare(CLONE_NEWNS) != 0)
        return false;
    const auto isMounted = [](const char *type, const char *place, const char *options) {
        return ::mount(type, place, type, MS_NOSUID | MS_NODEV, options) == 0;
    };
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
           && isMounted("tmpfs", "/srv", "mode=0755") && isMounted("tmpfs", "/tmp", "mode=1777")
           && ::mkdir("/tmp/etc", 0755) == 0 && ::mkdir("/tmp/etc-work", 0755) == 0
           && isMounted("overlay", "/etc", "lowerdir=/etc,upperdir=/tmp/etc,workdir=/tmp/etc-work");
}
