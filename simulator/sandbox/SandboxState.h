#ifndef SIMULATOR_SANDBOX_SANDBOX_STATE_H
#define SIMULATOR_SANDBOX_SANDBOX_STATE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Sandbox.h"

namespace sandbox {
/// C functions that can be told to fail: the first ones by name, all but malloc by the number of the call.
enum FailurePoint : std::size_t
{
    FAIL_OPEN,
    FAIL_WRITE,
    FAIL_FOPEN,
    FAIL_STATVFS,
    FAIL_PTHREAD_CREATE,
    FAIL_MALLOC,
    NAMED_FAILURE_POINT_COUNT,
    FAIL_CALLOC = NAMED_FAILURE_POINT_COUNT,
    FAIL_CLOSE,
    FAIL_FSTAT,
    FAIL_FGETS,
    FAIL_FREAD,
    FAIL_FSEEK,
    FAIL_FTELL,
    FAIL_FCLOSE,
    FAIL_SYSTEM,
    FAILURE_POINT_COUNT
};

/// Everything the sandbox remembers. There is one, made at the first use and never destroyed, so that calls in static
/// constructors and destructors find it.
class State
{
public:
    static State& get();

    void useDirectory(const std::string& directory);
    std::string directory();
    std::string realPath(const std::string& path);
    void exempt(const std::string& path);
    bool isExempt(const std::string& path);

    int runCommand(const char* command);
    void setCommandHandler(Sandbox::CommandHandler handler);
    std::vector<std::string> commands();
    void clearCommands();

    void setFreeSpace(std::optional<std::uint64_t> bytes);
    std::optional<std::uint64_t> freeSpace();
    void reset();

private:
    State() = default;

    const std::string& directoryLocked();
    void makePrivateDirectory();
    static void removePrivateDirectory();

    std::mutex m_Mutex;
    std::string m_Directory;
    std::string m_PrivateDirectory;
    int m_PrivateDirectoryOwner = 0;
    std::set<std::string> m_Exempt;
    Sandbox::CommandHandler m_CommandHandler;
    std::deque<std::string> m_Commands;
    std::optional<std::uint64_t> m_FreeSpace;
};

/// While one exists, the thread's file calls are the sandbox's own, whatever they name.
class OwnWork
{
public:
    OwnWork();
    ~OwnWork();
    OwnWork(const OwnWork&) = delete;
    OwnWork& operator=(const OwnWork&) = delete;

    static bool isGoingOn();
};

/// Whether the call that returns to `returnAddress` was made by the library, directly or through the C++ runtime.
bool isLibraryCall(const void* returnAddress);
/// Takes the image around `address` for the library.
void setLibraryImage(const void* address);

/// True, with errno set, when this call of the library is to fail. Allocates nothing.
bool failsNow(FailurePoint point, const void* returnAddress);
/// How many of `count` octets this write of the library still has room for.
std::size_t takeRoom(std::size_t count, const void* returnAddress);
/// No call fails any more, none is counted, and there is room for all writes.
void disarmFailures();

/// The next definition of a C function behind the sandbox's own.
void* nextSymbol(const char* name);
}  // namespace sandbox

#endif
