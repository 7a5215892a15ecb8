// Files: what the C library's functions of these names do for everybody in the process.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#include "Interpose.h"

using namespace sandbox;

extern "C" {
int sandboxOpen(const char* path, int flags, ...) SANDBOX_STANDS_FOR("open");
int sandboxOpen64(const char* path, int flags, ...) SANDBOX_STANDS_FOR("open64");
int sandboxOpen2(const char* path, int flags) SANDBOX_STANDS_FOR("__open_2");
int sandboxOpen642(const char* path, int flags) SANDBOX_STANDS_FOR("__open64_2");
int sandboxOpenat(int directory, const char* path, int flags, ...) SANDBOX_STANDS_FOR("openat");
int sandboxOpenat64(int directory, const char* path, int flags, ...) SANDBOX_STANDS_FOR("openat64");
int sandboxCreat(const char* path, mode_t mode) SANDBOX_STANDS_FOR("creat");
int sandboxCreat64(const char* path, mode_t mode) SANDBOX_STANDS_FOR("creat64");
FILE* sandboxFopen(const char* path, const char* mode) SANDBOX_STANDS_FOR("fopen");
FILE* sandboxFopen64(const char* path, const char* mode) SANDBOX_STANDS_FOR("fopen64");
FILE* sandboxFreopen(const char* path, const char* mode, FILE* file) SANDBOX_STANDS_FOR("freopen");
FILE* sandboxFreopen64(const char* path, const char* mode, FILE* file) SANDBOX_STANDS_FOR("freopen64");
int sandboxStatvfs(const char* path, struct statvfs* out) SANDBOX_STANDS_FOR("statvfs");
int sandboxStatvfs64(const char* path, struct statvfs64* out) SANDBOX_STANDS_FOR("statvfs64");
int sandboxStat(const char* path, struct stat* out) SANDBOX_STANDS_FOR("stat");
int sandboxStat64(const char* path, struct stat64* out) SANDBOX_STANDS_FOR("stat64");
int sandboxLstat(const char* path, struct stat* out) SANDBOX_STANDS_FOR("lstat");
int sandboxLstat64(const char* path, struct stat64* out) SANDBOX_STANDS_FOR("lstat64");
int sandboxAccess(const char* path, int mode) SANDBOX_STANDS_FOR("access");
int sandboxUnlink(const char* path) SANDBOX_STANDS_FOR("unlink");
int sandboxRemove(const char* path) SANDBOX_STANDS_FOR("remove");
int sandboxRmdir(const char* path) SANDBOX_STANDS_FOR("rmdir");
int sandboxMkdir(const char* path, mode_t mode) SANDBOX_STANDS_FOR("mkdir");
int sandboxUnlinkat(int directory, const char* path, int flags) SANDBOX_STANDS_FOR("unlinkat");
int sandboxMkdirat(int directory, const char* path, mode_t mode) SANDBOX_STANDS_FOR("mkdirat");
int sandboxChmod(const char* path, mode_t mode) SANDBOX_STANDS_FOR("chmod");
int sandboxTruncate(const char* path, off_t length) SANDBOX_STANDS_FOR("truncate");
int sandboxTruncate64(const char* path, off64_t length) SANDBOX_STANDS_FOR("truncate64");
int sandboxRename(const char* from, const char* to) SANDBOX_STANDS_FOR("rename");
int sandboxLink(const char* from, const char* to) SANDBOX_STANDS_FOR("link");
int sandboxSymlink(const char* target, const char* path) SANDBOX_STANDS_FOR("symlink");
DIR* sandboxOpendir(const char* path) SANDBOX_STANDS_FOR("opendir");
}

namespace {
enum class Intent
{
    LOOK,
    MAKE  ///< the call may create the file: its directories are made first
};

/// The board's own: even a call whose origin the compiler has hidden (a tail call) never reaches these for real.
bool isBoardPath(const char* path)
{
    constexpr std::array<const char*, 3> prefixes = {"/opt/addons", "/etc/init.d/rcBSP", "/tmp/ont_image.sef"};
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [path](const char* prefix) { return std::strncmp(path, prefix, std::strlen(prefix)) == 0; });
}

/// The path that the call is to work on.
class Redirected
{
public:
    Redirected(const char* path, Intent intent, const void* caller) : m_Path(path)
    {
        if (path == nullptr || path[0] != '/' || OwnWork::isGoingOn() ||
            !(isBoardPath(path) || isLibraryCall(caller))) {
            return;
        }
        State& state = State::get();
        if (state.isExempt(path)) {
            return;
        }
        m_Real = state.realPath(path);
        m_Path = m_Real.c_str();
        if (intent == Intent::MAKE) {
            // A directory that cannot be made shows as the failure of the call itself.
            const OwnWork ownWork;
            std::error_code ignored;
            std::filesystem::create_directories(std::filesystem::path(m_Real).parent_path(), ignored);
        }
    }

    const char* get() const { return m_Path; }

private:
    const char* m_Path;
    std::string m_Real;
};

constexpr bool needsMode(int flags)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

/// Reads the mode argument that follows `flags`, where there is one.
#define SANDBOX_MODE_ARGUMENT(mode, flags)                                                                             \
    mode_t mode = 0;                                                                                                   \
    if (needsMode(flags)) {                                                                                            \
        va_list arguments;                                                                                             \
        va_start(arguments, flags);                                                                                    \
        mode = va_arg(arguments, mode_t);                                                                              \
        va_end(arguments);                                                                                             \
    }

template <typename Real>
int openRedirected(Real real, const char* path, int flags, mode_t mode, const void* caller)
{
    if (failsNow(FAIL_OPEN, caller)) {
        return -1;
    }
    const Redirected redirected(path, (flags & O_CREAT) != 0 ? Intent::MAKE : Intent::LOOK, caller);
    return real(redirected.get(), flags, mode);
}

template <typename Real, typename... Rest>
FILE* fopenRedirected(Real real, const void* caller, const char* path, const char* mode, Rest... rest)
{
    if (failsNow(FAIL_FOPEN, caller)) {
        return nullptr;
    }
    const bool onlyReads = mode != nullptr && mode[0] == 'r';
    const Redirected redirected(path, onlyReads ? Intent::LOOK : Intent::MAKE, caller);
    return real(redirected.get(), mode, rest...);
}

template <typename Real, typename Out>
int statvfsRedirected(Real real, const char* path, Out* out, const void* caller)
{
    if (failsNow(FAIL_STATVFS, caller)) {
        return -1;
    }
    const Redirected redirected(path, Intent::LOOK, caller);
    const int result = real(redirected.get(), out);
    const auto freeSpace = isLibraryCall(caller) ? State::get().freeSpace() : std::nullopt;
    if (result == 0 && freeSpace) {
        // In bytes, so that no amount is rounded.
        out->f_frsize = 1;
        out->f_bfree = static_cast<decltype(out->f_bfree)>(*freeSpace);
        out->f_bavail = out->f_bfree;
    }
    return result;
}
}  // namespace

int sandboxOpen(const char* path, int flags, ...)
{
    SANDBOX_REAL(decltype(&sandboxOpen), "open");
    SANDBOX_MODE_ARGUMENT(mode, flags)
    return openRedirected(real, path, flags, mode, SANDBOX_CALLER);
}

int sandboxOpen64(const char* path, int flags, ...)
{
    SANDBOX_REAL(decltype(&sandboxOpen64), "open64");
    SANDBOX_MODE_ARGUMENT(mode, flags)
    return openRedirected(real, path, flags, mode, SANDBOX_CALLER);
}

int sandboxOpen2(const char* path, int flags)
{
    SANDBOX_REAL(decltype(&sandboxOpen), "open");
    return openRedirected(real, path, flags, 0, SANDBOX_CALLER);
}

int sandboxOpen642(const char* path, int flags)
{
    SANDBOX_REAL(decltype(&sandboxOpen64), "open64");
    return openRedirected(real, path, flags, 0, SANDBOX_CALLER);
}

int sandboxOpenat(int directory, const char* path, int flags, ...)
{
    SANDBOX_REAL(decltype(&sandboxOpenat), "openat");
    SANDBOX_MODE_ARGUMENT(mode, flags)
    const auto realAt = [directory](const char* realPath, int realFlags, mode_t realMode) {
        return real(directory, realPath, realFlags, realMode);
    };
    return openRedirected(realAt, path, flags, mode, SANDBOX_CALLER);
}

int sandboxOpenat64(int directory, const char* path, int flags, ...)
{
    SANDBOX_REAL(decltype(&sandboxOpenat64), "openat64");
    SANDBOX_MODE_ARGUMENT(mode, flags)
    const auto realAt = [directory](const char* realPath, int realFlags, mode_t realMode) {
        return real(directory, realPath, realFlags, realMode);
    };
    return openRedirected(realAt, path, flags, mode, SANDBOX_CALLER);
}

int sandboxCreat(const char* path, mode_t mode)
{
    SANDBOX_REAL(decltype(&sandboxOpen), "open");
    return openRedirected(real, path, O_CREAT | O_WRONLY | O_TRUNC, mode, SANDBOX_CALLER);
}

int sandboxCreat64(const char* path, mode_t mode)
{
    SANDBOX_REAL(decltype(&sandboxOpen64), "open64");
    return openRedirected(real, path, O_CREAT | O_WRONLY | O_TRUNC, mode, SANDBOX_CALLER);
}

FILE* sandboxFopen(const char* path, const char* mode)
{
    SANDBOX_REAL(decltype(&sandboxFopen), "fopen");
    return fopenRedirected(real, SANDBOX_CALLER, path, mode);
}

FILE* sandboxFopen64(const char* path, const char* mode)
{
    SANDBOX_REAL(decltype(&sandboxFopen64), "fopen64");
    return fopenRedirected(real, SANDBOX_CALLER, path, mode);
}

FILE* sandboxFreopen(const char* path, const char* mode, FILE* file)
{
    SANDBOX_REAL(decltype(&sandboxFreopen), "freopen");
    return fopenRedirected(real, SANDBOX_CALLER, path, mode, file);
}

FILE* sandboxFreopen64(const char* path, const char* mode, FILE* file)
{
    SANDBOX_REAL(decltype(&sandboxFreopen64), "freopen64");
    return fopenRedirected(real, SANDBOX_CALLER, path, mode, file);
}

int sandboxStatvfs(const char* path, struct statvfs* out)
{
    SANDBOX_REAL(decltype(&sandboxStatvfs), "statvfs");
    return statvfsRedirected(real, path, out, SANDBOX_CALLER);
}

int sandboxStatvfs64(const char* path, struct statvfs64* out)
{
    SANDBOX_REAL(decltype(&sandboxStatvfs64), "statvfs64");
    return statvfsRedirected(real, path, out, SANDBOX_CALLER);
}

// Calls with one path that need nothing but the right one.
#define SANDBOX_ONE_PATH(result, function, symbol, intent, declared, passed)                                           \
    result function declared                                                                                           \
    {                                                                                                                  \
        SANDBOX_REAL(decltype(&function), symbol);                                                                     \
        const Redirected redirected(path, intent, SANDBOX_CALLER);                                                     \
        return real passed;                                                                                            \
    }

SANDBOX_ONE_PATH(int, sandboxStat, "stat", Intent::LOOK, (const char* path, struct stat* out), (redirected.get(), out))
SANDBOX_ONE_PATH(int, sandboxStat64, "stat64", Intent::LOOK, (const char* path, struct stat64* out),
                 (redirected.get(), out))
SANDBOX_ONE_PATH(int, sandboxLstat, "lstat", Intent::LOOK, (const char* path, struct stat* out),
                 (redirected.get(), out))
SANDBOX_ONE_PATH(int, sandboxLstat64, "lstat64", Intent::LOOK, (const char* path, struct stat64* out),
                 (redirected.get(), out))
SANDBOX_ONE_PATH(int, sandboxAccess, "access", Intent::LOOK, (const char* path, int mode), (redirected.get(), mode))
SANDBOX_ONE_PATH(int, sandboxUnlink, "unlink", Intent::LOOK, (const char* path), (redirected.get()))
SANDBOX_ONE_PATH(int, sandboxRemove, "remove", Intent::LOOK, (const char* path), (redirected.get()))
SANDBOX_ONE_PATH(int, sandboxRmdir, "rmdir", Intent::LOOK, (const char* path), (redirected.get()))
SANDBOX_ONE_PATH(int, sandboxMkdir, "mkdir", Intent::MAKE, (const char* path, mode_t mode), (redirected.get(), mode))
SANDBOX_ONE_PATH(int, sandboxUnlinkat, "unlinkat", Intent::LOOK, (int directory, const char* path, int flags),
                 (directory, redirected.get(), flags))
SANDBOX_ONE_PATH(int, sandboxMkdirat, "mkdirat", Intent::MAKE, (int directory, const char* path, mode_t mode),
                 (directory, redirected.get(), mode))
SANDBOX_ONE_PATH(int, sandboxChmod, "chmod", Intent::LOOK, (const char* path, mode_t mode), (redirected.get(), mode))
SANDBOX_ONE_PATH(int, sandboxTruncate, "truncate", Intent::LOOK, (const char* path, off_t length),
                 (redirected.get(), length))
SANDBOX_ONE_PATH(int, sandboxTruncate64, "truncate64", Intent::LOOK, (const char* path, off64_t length),
                 (redirected.get(), length))
SANDBOX_ONE_PATH(int, sandboxSymlink, "symlink", Intent::MAKE, (const char* target, const char* path),
                 (target, redirected.get()))
SANDBOX_ONE_PATH(DIR*, sandboxOpendir, "opendir", Intent::LOOK, (const char* path), (redirected.get()))

int sandboxRename(const char* from, const char* to)
{
    SANDBOX_REAL(decltype(&sandboxRename), "rename");
    const Redirected redirectedFrom(from, Intent::LOOK, SANDBOX_CALLER);
    const Redirected redirectedTo(to, Intent::MAKE, SANDBOX_CALLER);
    return real(redirectedFrom.get(), redirectedTo.get());
}

int sandboxLink(const char* from, const char* to)
{
    SANDBOX_REAL(decltype(&sandboxLink), "link");
    const Redirected redirectedFrom(from, Intent::LOOK, SANDBOX_CALLER);
    const Redirected redirectedTo(to, Intent::MAKE, SANDBOX_CALLER);
    return real(redirectedFrom.get(), redirectedTo.get());
}
