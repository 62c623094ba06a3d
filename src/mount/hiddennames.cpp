// SPDX-License-Identifier: GPL-3.0-or-later
// Hides names that begin with a dot from the server that loads this library, at every level of a path. vsftpd compares
// its setting deny_file only with the last part of a path.
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <string_view>

// The header of open() would replace some of the functions below, so it is not included.
#include <dlfcn.h>
#include <linux/fcntl.h>
#include <unistd.h>

namespace
{
bool hasHiddenName(std::string_view path)
{
    while (!path.empty()) {
        const std::string_view name(path.data(), std::min(path.find('/'), path.size()));
        if (!name.empty() && name.front() == '.' && name != "." && name != "..")
            return true;
        path.remove_prefix(std::min(name.size() + 1, path.size()));
    }
    return false;
}

/** Checks the working directory too: it may have been renamed or deleted after the client entered it. */
bool isHiddenFolder()
{
    std::array<char, PATH_MAX> folder = {};
    return ::getcwd(folder.data(), folder.size()) == nullptr || hasHiddenName(folder.data());
}

bool isHidden(const char *path)
{
    // The target of links; realpath() fails for a path that does not exist.
    std::array<char, PATH_MAX> place = {};
    return hasHiddenName(path) || (*path != '/' && isHiddenFolder())
           || (::realpath(path, place.data()) != nullptr && hasHiddenName(place.data()));
}

/** Calls the C library's function with this name and type, or fails as if nothing were at the path. */
template <typename Function, typename Result, typename... Arguments>
Result pass(Function * /*type*/, const char *name, Result refusal, const char *path, Arguments... arguments)
{
    if (isHidden(path)) {
        errno = ENOENT;
        return refusal;
    }
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name))(path, arguments...);
}
} // namespace

// The functions that servers use to access a path, and their variants for large files, 64-bit times and checked flags.
#define VELT_FUNCTION extern "C" __attribute__((visibility("default")))

#define VELT_OPEN(name)                                                                                      \
    VELT_FUNCTION int name(const char *path, int flags, ...)                                                 \
    {                                                                                                        \
        unsigned mode = 0;                                                                                   \
        if ((flags & (O_CREAT | __O_TMPFILE)) != 0) {                                                        \
            std::va_list list;                                                                               \
            va_start(list, flags);                                                                           \
            mode = va_arg(list, unsigned);                                                                   \
            va_end(list);                                                                                    \
        }                                                                                                    \
        return pass(&(name), #name, -1, path, flags, mode);                                                  \
    }
VELT_OPEN(open)
VELT_OPEN(open64)

#define VELT_CHECKED_OPEN(name)                                                                              \
    VELT_FUNCTION int name(const char *path, int flags)                                                      \
    {                                                                                                        \
        return pass(&(name), #name, -1, path, flags);                                                        \
    }
VELT_CHECKED_OPEN(__open_2)
VELT_CHECKED_OPEN(__open64_2)

#define VELT_STATUS(name)                                                                                    \
    VELT_FUNCTION int name(const char *path, void *status)                                                   \
    {                                                                                                        \
        return pass(&(name), #name, -1, path, status);                                                       \
    }
VELT_STATUS(stat)
VELT_STATUS(stat64)
VELT_STATUS(__stat64_time64)
VELT_STATUS(lstat)
VELT_STATUS(lstat64)
VELT_STATUS(__lstat64_time64)

VELT_FUNCTION void *opendir(const char *path)
{
    return pass(&opendir, "opendir", static_cast<void *>(nullptr), path);
}

VELT_FUNCTION int access(const char *name, int type) noexcept
{
    return pass(&access, "access", -1, name, type);
}

VELT_FUNCTION int chdir(const char *path) noexcept
{
    return pass(&chdir, "chdir", -1, path);
}
