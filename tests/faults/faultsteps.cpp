// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded into the programs under test before the C library, whose functions that change files it replaces: they count
// a step on the board, and there the fault comes that the test has chosen.
#undef _FORTIFY_SOURCE
#include "faultboard.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
FaultBoard *map()
{
    const char *path = std::getenv(FaultBoard::Variable);
    // Not by our own open(), which asks for the board.
    const int file = path ? static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC)) : -1;
    if (file < 0)
        return nullptr;
    void *memory = ::mmap(nullptr, sizeof(FaultBoard), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::close(file);
    return memory == MAP_FAILED ? nullptr : static_cast<FaultBoard *>(memory);
}

FaultBoard *mapped()
{
    static FaultBoard *const memory = map();
    return memory;
}

/** Nothing as long as no steps count. */
FaultBoard *board()
{
    return mapped() && mapped()->main != 0 ? mapped() : nullptr;
}

bool isBelow(const char *path)
{
    const std::size_t length = std::strlen(board()->folder);
    return std::strncmp(path, board()->folder, length) == 0;
}

/** Whether the open file or folder is one of those that count. Pipes and sockets are not. */
bool isOurs(int file)
{
    char name[64];
    char path[PATH_MAX];
    std::snprintf(name, sizeof name, "/proc/self/fd/%d", file);
    const ssize_t length = board() ? ::readlink(name, path, sizeof path - 1) : -1;
    if (length < 0)
        return false;
    path[length] = '\0';
    return isBelow(path);
}

bool isOurs(int folder, const char *path)
{
    char current[PATH_MAX];
    if (!board() || !path)
        return false;
    if (path[0] == '/')
        return isBelow(path);
    return folder == AT_FDCWD ? ::getcwd(current, sizeof current) && isBelow(current) : isOurs(folder);
}

/** What the next step meets. */
enum class Meeting { Nothing, NoRoom, Death };

Meeting meet()
{
    FaultBoard &plan = *board();
    const int step = ++plan.steps;
    const bool isMain = ::getpid() == plan.main;
    if (step < plan.from)
        return Meeting::Nothing;
    switch (plan.fault) {
    case FaultBoard::MainKilled:
        if (!isMain)
            ::kill(plan.main, SIGKILL);
        return isMain ? Meeting::Death : Meeting::Nothing;
    case FaultBoard::AllKilled:
        ::kill(plan.main, SIGKILL);
        return Meeting::Death;
    case FaultBoard::ChildKilled:
        return !isMain && plan.from.exchange(INT_MAX) != INT_MAX ? Meeting::Death : Meeting::Nothing;
    case FaultBoard::DiskFull:
        return step < plan.until ? Meeting::NoRoom : Meeting::Nothing;
    default:
        return Meeting::Nothing;
    }
}

[[noreturn]] void die()
{
    ::kill(::getpid(), SIGKILL);
    for (;;)
        ::pause();
}

/** A step that needs no room. */
void step()
{
    if (meet() == Meeting::Death)
        die();
}

/** A step that needs room; false without it. */
bool roomyStep()
{
    const Meeting meeting = meet();
    if (meeting == Meeting::Death)
        die();
    if (meeting == Meeting::NoRoom)
        errno = ENOSPC;
    return meeting != Meeting::NoRoom;
}

template <typename Function>
Function *following(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

int openStep(int folder, const char *path, int flags, va_list more)
{
    static auto *const next = following<int(int, const char *, int, ...)>("openat64");
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    const mode_t mode = makes ? va_arg(more, mode_t) : 0;
    if (isOurs(folder, path)) {
        const bool isNew
            = (flags & O_CREAT) != 0 && ::faccessat(folder, path, F_OK, AT_SYMLINK_NOFOLLOW) != 0;
        if (isNew && !roomyStep())
            return -1;
        if (!isNew && (flags & O_TRUNC) != 0)
            step();
    }
    return next(folder, path, flags, mode);
}

/** Writes half of it before a death. */
template <typename Write>
ssize_t writeStep(int file, std::size_t size, const Write &write)
{
    if (!isOurs(file))
        return write(size);
    const Meeting meeting = meet();
    if (meeting == Meeting::Death) {
        write(size / 2);
        die();
    }
    if (meeting == Meeting::NoRoom) {
        errno = ENOSPC;
        return -1;
    }
    return write(size);
}
} // namespace

#define OPENING(folder)                                                                                      \
    {                                                                                                        \
        va_list more;                                                                                        \
        va_start(more, flags);                                                                               \
        const int file = openStep(folder, path, flags, more);                                                \
        va_end(more);                                                                                        \
        return file;                                                                                         \
    }

extern "C" {
void beginFaults()
{
    if (mapped())
        mapped()->main = ::getpid();
}

int open(const char *path, int flags, ...) OPENING(AT_FDCWD) int open64(const char *path, int flags, ...)
    OPENING(AT_FDCWD) int openat(int folder, const char *path, int flags, ...)
        OPENING(folder) int openat64(int folder, const char *path, int flags, ...) OPENING(folder)

            ssize_t write(int file, const void *data, std::size_t size)
{
    static auto *const next = following<ssize_t(int, const void *, std::size_t)>("write");
    return writeStep(file, size, [=](std::size_t part) { return next(file, data, part); });
}

ssize_t pwrite(int file, const void *data, std::size_t size, off_t at)
{
    static auto *const next = following<ssize_t(int, const void *, std::size_t, off_t)>("pwrite64");
    return writeStep(file, size, [=](std::size_t part) { return next(file, data, part, at); });
}

ssize_t pwrite64(int file, const void *data, std::size_t size, off64_t at)
{
    return pwrite(file, data, size, at);
}

ssize_t copy_file_range(int from, off64_t *in, int to, off64_t *out, std::size_t size, unsigned flags)
{
    static auto *const next
        = following<ssize_t(int, off64_t *, int, off64_t *, std::size_t, unsigned)>("copy_file_range");
    return writeStep(to, size, [=](std::size_t part) { return next(from, in, to, out, part, flags); });
}

int ftruncate(int file, off_t size) noexcept
{
    static auto *const next = following<int(int, off_t)>("ftruncate64");
    if (isOurs(file))
        step();
    return next(file, size);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return ftruncate(file, size);
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    static auto *const next = following<int(int, const char *, int)>("unlinkat");
    if (isOurs(folder, path))
        step();
    return next(folder, path, flags);
}

int unlink(const char *path) noexcept
{
    return unlinkat(AT_FDCWD, path, 0);
}

int rmdir(const char *path) noexcept
{
    return unlinkat(AT_FDCWD, path, AT_REMOVEDIR);
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    static auto *const next = following<int(int, const char *, mode_t)>("mkdirat");
    if (isOurs(folder, path) && ::faccessat(folder, path, F_OK, AT_SYMLINK_NOFOLLOW) != 0 && !roomyStep())
        return -1;
    return next(folder, path, mode);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return mkdirat(AT_FDCWD, path, mode);
}

int symlinkat(const char *target, int folder, const char *path) noexcept
{
    static auto *const next = following<int(const char *, int, const char *)>("symlinkat");
    if (isOurs(folder, path) && !roomyStep())
        return -1;
    return next(target, folder, path);
}

int symlink(const char *target, const char *path) noexcept
{
    return symlinkat(target, AT_FDCWD, path);
}

int linkat(int fromFolder, const char *from, int folder, const char *path, int flags) noexcept
{
    static auto *const next = following<int(int, const char *, int, const char *, int)>("linkat");
    if (isOurs(folder, path) && !roomyStep())
        return -1;
    return next(fromFolder, from, folder, path, flags);
}

int link(const char *from, const char *path) noexcept
{
    return linkat(AT_FDCWD, from, AT_FDCWD, path, 0);
}

int renameat2(int fromFolder, const char *from, int folder, const char *path, unsigned flags) noexcept
{
    static auto *const next = following<int(int, const char *, int, const char *, unsigned)>("renameat2");
    if (isOurs(folder, path) || isOurs(fromFolder, from))
        step();
    return next(fromFolder, from, folder, path, flags);
}

int renameat(int fromFolder, const char *from, int folder, const char *path) noexcept
{
    return renameat2(fromFolder, from, folder, path, 0);
}

int rename(const char *from, const char *path) noexcept
{
    return renameat2(AT_FDCWD, from, AT_FDCWD, path, 0);
}
}
