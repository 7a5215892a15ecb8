#ifndef SIMULATOR_SANDBOX_SANDBOX_STATE_H
#define SIMULATOR_SANDBOX_SANDBOX_STATE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Sandbox.h"

namespace sandbox {
/// C functions that can be told to fail.
enum FailurePoint : std::size_t
{
    FAIL_OPEN,
    FAIL_WRITE,
    FAIL_FOPEN,
    FAIL_STATVFS,
    FAIL_PTHREAD_CREATE,
    FAIL_MALLOC,
    FAILURE_POINT_COUNT
};

extern const std::array<const char*, FAILURE_POINT_COUNT> failurePointNames;

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
    std::vector<std::string> m_Commands;
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

/// Makes the next `times` calls of the library fail.
void armFailure(FailurePoint point, int errnoValue, unsigned int times);
/// True, with errno set, when this call of the library is to fail. Allocates nothing.
bool failsNow(FailurePoint point, const void* returnAddress);

/// The next definition of a C function behind the sandbox's own.
void* nextSymbol(const char* name);
}  // namespace sandbox

#endif
