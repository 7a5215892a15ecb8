#ifndef SIMULATOR_SANDBOX_SANDBOX_H
#define SIMULATOR_SANDBOX_SANDBOX_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Keeps the library's shell commands and file accesses away from the machine it runs on.
///
/// Linking `nrvk_sandbox` into an executable puts its own `system`, `open`, `fopen` ... in front of those of the C
/// library, for the executable and for every shared library it loads. No shell command is ever run: it is written
/// down and handed to a stand-in. A file call that comes from the library and names an absolute path works on that path
/// below a private directory; other callers' file calls are left alone, except on the board's own paths
/// (/opt/addons, /etc/init.d, the received image), which nobody reaches for real.
///
/// It protects without being set up: an untold sandbox makes a private directory at the first need, and takes the
/// shared library of the managed entities, or else the executable, for the library. All operations may be called from
/// any thread.
class Sandbox
{
public:
    /// Stands in for the shell: the result is what `system` yields. Runs on the thread that called `system`, with no
    /// lock held.
    using CommandHandler = std::function<int(const char* command)>;

    /// Takes the directory that holds the library's files from now on; it is made when missing and stays at exit.
    /// Throws std::filesystem::filesystem_error when that fails.
    static void useDirectory(const std::string& directory);
    /// The directory in force, an absolute path without a trailing slash. With none given it is a new one below $TMPDIR
    /// (/tmp), which is removed when the process exits.
    static std::string directory();
    /// Where the library's absolute path really lies.
    static std::string realPath(const std::string& path);

    /// Any address inside the image (executable or shared library) whose calls are the library's.
    static void setLibraryAddress(const void* address);
    /// A path of the real machine that the library may reach as it stands.
    static void exempt(const std::string& path);

    /// Empty: every command yields 0.
    static void setCommandHandler(CommandHandler handler);
    /// An ONU restarts and downloads for months.
    static constexpr std::size_t kRememberedCommands = 1024;
    /// The last commands asked for, in order.
    static std::vector<std::string> commands();
    static void clearCommands();

    /// The next `times` calls of a C function by the library fail with `errnoValue`. False when the function has no
    /// failure point. "malloc" stands for calloc and the non-throwing array new too.
    static bool fail(const std::string& function, int errnoValue, unsigned int times);
    /// What has a failure point.
    static std::vector<std::string> failurePoints();

    /// The library's calls are numbered from 0 from now on, whatever they are: open, write, close, fopen, fgets, fread,
    /// fseek, ftell, fclose, fstat, statvfs, calloc, system and pthread_create. Nothing fails.
    static void numberCalls();
    /// The same, and the call of that number fails. A file is closed even so, as close and fclose have it.
    static void failCall(std::size_t number, int errnoValue);
    /// What was called since, in the order of the numbers; at most 4096.
    static std::vector<std::string> numberedCalls();
    /// A disk with room for so many octets of the library's writes: the one that crosses the end is cut short, and what
    /// follows fails with ENOSPC. Nothing: no limit.
    static void setRoom(std::optional<std::size_t> octets);

    /// Free bytes that statvfs shows to the library; nothing: those of the real file system.
    static void setFreeSpace(std::optional<std::uint64_t> bytes);

    /// Forgets commands, handler, failures, room, free space and exempt paths; the directory and its files stay.
    static void reset();
};

#endif
