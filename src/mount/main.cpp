// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the public part of a repository at a mount point and starts the server there. The server has a mount namespace
// of its own, so its end also ends the mounts. Needs CAP_SYS_ADMIN, and CAP_DAC_READ_SEARCH to reach the directory.
#include "requestlog.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/inotify.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr const char *Usage
    = R"(Usage: velt-admin-repo-mount [--shut-in] DIRECTORY MOUNTPOINT COMMAND [ARGUMENT...]
Shows in MOUNTPOINT/public what clients may see of the repository DIRECTORY, read-only, and runs COMMAND there.
With --shut-in, COMMAND sees programs and MOUNTPOINT alone. No link is followed in the repository, which is
MOUNTPOINT/repository. The numbers READER and READER_GROUP tell COMMAND with whose rights to read: with those of
the owner of DIRECTORY, or with those of the owner of RUNTIME_DIRECTORY. What COMMAND writes to /dev/requests comes
to the standard error output, and the first 64 MiB of both get there.
All paths are absolute.)";

/** The parts that clients may see. Everything else in the repository's directory is private to its owner. */
constexpr std::initializer_list<const char *> Shown
    = {"dists", "pool", "repository-key.asc", "repository-key.gpg"};
constexpr const char *Whole = "repository";
constexpr const char *Public = "public";
/** The files of the system that servers need. */
constexpr std::initializer_list<const char *> SystemFiles = {"/dev/null", "/etc/localtime"};
/** Folders, or links to folders in /usr. */
constexpr std::initializer_list<const char *> ProgramFolders
    = {"/usr", "/bin", "/lib", "/lib32", "/lib64", "/libx32", "/sbin"};

class Failure : public std::runtime_error
{
public:
    explicit Failure(const std::string &what, int error = errno)
        : std::runtime_error(what + ": " + std::strerror(error))
    { }
};

class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    { }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor(Descriptor &&other) noexcept
        : m_number(other.m_number)
    {
        other.m_number = -1;
    }
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

private:
    int m_number;
};

/** A repository's directory. It stays open: a directory that replaces it later is not served. */
struct Repository
{
    Descriptor directory;
    uid_t owner = 0;
    /** Whether the server may read with the rights of the owner. */
    bool isLent = false;
};

/**
 * Opens the path name by name, so that no link is followed. The rights of the owner are lent only when nobody else
 * could have moved the directory there: in a folder of another user, that user could publish files that only the owner
 * may read.
 */
Repository open(const std::string &path)
{
    constexpr int flags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    Repository repository{Descriptor(::open("/", flags))};
    uid_t user = 0;
    bool isOwn = true;
    std::size_t start = 0;
    while (true) {
        struct stat status = {};
        if (!repository.directory.isOpen() || ::fstat(repository.directory.number(), &status) != 0)
            throw Failure("The directory " + path + " is not there, or is reached through a link");
        repository.owner = status.st_uid;
        isOwn = isOwn && (user == 0 || status.st_uid == 0 || user == status.st_uid);
        user = std::max(user, status.st_uid);
        start = std::min(path.find_first_not_of('/', start), path.size());
        if (start == path.size())
            break;
        const bool isEverybodys = (status.st_mode & S_IWOTH) != 0 && (status.st_mode & S_ISVTX) == 0;
        isOwn = isOwn && !isEverybodys;
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string name = path.substr(start, end - start);
        repository.directory = Descriptor(::openat(repository.directory.number(), name.c_str(), flags));
        start = end;
    }
    repository.isLent = isOwn && repository.owner != 0;
    return repository;
}

/** A copy of a mount tree, which is attached nowhere yet. */
Descriptor copied(int folder, const std::string &path, unsigned flags = AT_EMPTY_PATH)
{
    return Descriptor(
        ::open_tree(folder, path.c_str(), flags | AT_RECURSIVE | OPEN_TREE_CLONE | OPEN_TREE_CLOEXEC));
}

void place(const Descriptor &tree, int folder, const std::string &path)
{
    if (!tree.isOpen() || ::move_mount(tree.number(), "", folder, path.c_str(), MOVE_MOUNT_F_EMPTY_PATH) != 0)
        throw Failure(path);
}

void restrict(const Descriptor &tree, std::uint64_t attributes)
{
    mount_attr change = {};
    change.attr_set
        = attributes | MOUNT_ATTR_RDONLY | MOUNT_ATTR_NOSUID | MOUNT_ATTR_NODEV | MOUNT_ATTR_NOEXEC;
    // A later mount in the repository does not appear here, because it would lack the restrictions.
    change.propagation = MS_PRIVATE;
    if (::mount_setattr(tree.number(), "", AT_EMPTY_PATH | AT_RECURSIVE, &change, sizeof change) != 0)
        throw Failure("This kernel cannot keep a server to a repository (Linux 5.14 can)");
}

void makeFolder(const std::string &path)
{
    for (std::size_t end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1))
        ::mkdir(path.substr(0, end).c_str(), 0755);
    if (::mkdir(path.c_str(), 0755) != 0 && errno != EEXIST)
        throw Failure(path);
}

/** Changes the root directory to one with only the things that servers need, and an empty folder `mountPoint`. */
void shutIn(const std::string &mountPoint)
{
    constexpr const char *root = "/tmp";
    if (::mount("root", root, "tmpfs", MS_NOSUID | MS_NODEV, "mode=755,size=64k") != 0 || ::chdir(root) != 0)
        throw Failure(root);
    const auto inside = [](const std::string &path) { return path.substr(1); };
    for (const std::string folder : ProgramFolders) {
        std::array<char, 256> target = {};
        if (::readlink(folder.c_str(), target.data(), target.size() - 1) > 0) {
            if (::symlink(target.data(), inside(folder).c_str()) != 0)
                throw Failure(folder);
        } else if (::access(folder.c_str(), F_OK) == 0) {
            makeFolder(inside(folder));
            place(copied(AT_FDCWD, folder), AT_FDCWD, inside(folder));
        }
    }
    for (const std::string file : SystemFiles) {
        if (::access(file.c_str(), F_OK) != 0)
            continue;
        makeFolder(inside(file.substr(0, file.rfind('/'))));
        const Descriptor empty(::open(inside(file).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
        place(copied(AT_FDCWD, file), AT_FDCWD, inside(file));
    }
    if (!RequestLog::make(inside(RequestLog::Path).c_str()))
        throw Failure(RequestLog::Path);
    makeFolder(inside(mountPoint));
    if (::syscall(SYS_pivot_root, ".", ".") != 0 || ::umount2(".", MNT_DETACH) != 0 || ::chdir("/") != 0)
        throw Failure(root);
    if (::mount(nullptr, "/", nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY | MS_NOSUID | MS_NODEV, nullptr) != 0)
        throw Failure(root);
}

/** The folders below the mount point. */
struct Folders
{
    Descriptor whole; ///< the directory of the repository
    Descriptor shown;
};

/** Mounts the repository into a folder of our own below the mount point. */
Folders mountRepository(const Descriptor &repository, const std::string &mountPoint)
{
    constexpr unsigned long flags = MS_NOSUID | MS_NODEV | MS_NOEXEC;
    if (::mount("repository", mountPoint.c_str(), "tmpfs", flags, "mode=755,size=64k") != 0
        || ::chdir(mountPoint.c_str()) != 0 || ::mkdir(Whole, 0755) != 0 || ::mkdir(Public, 0755) != 0)
        throw Failure(mountPoint);
    place(repository, AT_FDCWD, Whole);
    constexpr int directory = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    return {Descriptor(::open(Whole, directory)), Descriptor(::open(Public, directory))};
}

/**
 * Makes links for a server that follows no links in the repository: it lists them, but its configuration has the real
 * folder.
 */
void link(const Folders &folders)
{
    for (const char *name : Shown) {
        const std::string target = std::string("../") + Whole + '/' + name;
        if (::symlinkat(target.c_str(), folders.shown.number(), name) != 0)
            throw Failure(name);
    }
}

/** Updates the mounts in the working directory: a new folder or file is mounted, and one that is gone is unmounted. */
void update(const Folders &folders)
{
    for (const char *name : Shown) {
        const Descriptor tree = copied(folders.whole.number(), name, AT_SYMLINK_NOFOLLOW);
        struct stat wanted = {};
        struct stat shown = {};
        const bool isThere = tree.isOpen() && ::fstat(tree.number(), &wanted) == 0
                             && (S_ISDIR(wanted.st_mode) || S_ISREG(wanted.st_mode));
        const bool isShown = ::lstat(name, &shown) == 0;
        if (isThere && isShown && wanted.st_dev == shown.st_dev && wanted.st_ino == shown.st_ino)
            continue;
        if (isShown) {
            ::umount2(name, MNT_DETACH | UMOUNT_NOFOLLOW);
            ::unlinkat(AT_FDCWD, name, S_ISDIR(shown.st_mode) ? AT_REMOVEDIR : 0);
        }
        if (!isThere)
            continue;
        if (S_ISDIR(wanted.st_mode))
            ::mkdir(name, 0755);
        else
            const Descriptor empty(::open(name, O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
        place(tree, AT_FDCWD, name);
    }
}

/**
 * For a server whose root directory is the folder: shows what exists now and what appears later, because reprepro
 * deletes pool/ together with the last package. A separate process does this. It is no child of the server, because the
 * server does not expect one. It ends with the unit of the server.
 */
void follow(const Folders &folders)
{
    const Descriptor watch(::inotify_init1(IN_CLOEXEC));
    const std::string whole = std::string("../") + Whole;
    if (::fchdir(folders.shown.number()) != 0 || !watch.isOpen()
        || ::inotify_add_watch(watch.number(), whole.c_str(), IN_CREATE | IN_DELETE | IN_MOVE | IN_ONLYDIR)
               < 0)
        throw Failure("The repository cannot be watched");
    update(folders);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::fork() != 0)
            ::_exit(EXIT_SUCCESS);
        std::array<char, 4096> events = {};
        while (::read(watch.number(), events.data(), events.size()) > 0) {
            try {
                update(folders);
            } catch (const Failure &error) {
                std::fprintf(stderr, "%s\n", error.what());
            }
        }
        ::_exit(EXIT_FAILURE);
    }
    if (child < 0 || ::waitpid(child, nullptr, 0) != child || ::chdir("/") != 0)
        throw Failure("The repository cannot be watched");
}

/** With whose rights the server reads; these are never root's. */
struct Reader
{
    uid_t user;
    gid_t group;
};

Reader readerOf(const Repository &repository)
{
    const char *const own = ::getenv("RUNTIME_DIRECTORY");
    struct stat status = {};
    if (own == nullptr || ::stat(own, &status) != 0 || status.st_uid == 0)
        throw std::runtime_error("RUNTIME_DIRECTORY has to be a folder of the service's own user.");
    return {repository.isLent ? repository.owner : status.st_uid, status.st_gid};
}

void tell(const Reader &reader)
{
    if (::setenv("READER", std::to_string(reader.user).c_str(), 1) != 0
        || ::setenv("READER_GROUP", std::to_string(reader.group).c_str(), 1) != 0)
        throw Failure("READER");
}

/** Makes the command load this library. */
void preload(const char *library)
{
    // The dynamic linker only warns about a library that cannot be loaded, so we try it first.
    if (::dlopen(library, RTLD_NOW | RTLD_LOCAL) == nullptr)
        throw std::runtime_error(::dlerror());
    if (::setenv("LD_PRELOAD", library, 1) != 0)
        throw Failure("LD_PRELOAD");
}

void run(int count, char **words)
{
    const bool isShutIn = count > 1 && std::strcmp(words[1], "--shut-in") == 0;
    const int first = isShutIn ? 2 : 1;
    if (count < first + 3)
        throw std::invalid_argument(Usage);
    const std::string mountPoint = words[first + 1];
    if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        throw Failure("There is no mount namespace to be had");
    const Repository repository = open(words[first]);
    const Descriptor tree = copied(repository.directory.number(), "");
    if (!tree.isOpen())
        throw Failure("The repository cannot be mounted");
    restrict(tree, isShutIn ? MOUNT_ATTR_NOSYMFOLLOW : 0);
    if (isShutIn) {
        const Reader reader = readerOf(repository);
        tell(reader);
        shutIn(mountPoint);
        link(mountRepository(tree, mountPoint));
        if (!RequestLog::start(reader.user, reader.group))
            throw Failure("The log of the requests cannot be written");
    } else {
        follow(mountRepository(tree, mountPoint));
    }
    // Each library adds what its server lacks: lighttpd itself refuses hidden names, and vsftpd itself limits the
    // connections of an address.
    preload(isShutIn ? CONNECTIONS : HIDDEN_NAMES);
    char **const command = words + first + 2;
    ::execv(command[0], command);
    throw Failure(command[0]);
}
} // namespace

int main(int count, char **words)
{
    try {
        run(count, words);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return EXIT_FAILURE;
}
