// Calls that are told to fail: by name, by number, for want of room.
#include <atomic>
#include <cerrno>
#include <limits>

#include "SandboxState.h"

namespace sandbox {
namespace {
constexpr std::array<const char*, FAILURE_POINT_COUNT> names = {
    "open",  "write", "fopen", "statvfs", "pthread_create", "malloc", "calloc", "close",
    "fstat", "fgets", "fread", "fseek",   "ftell",          "fclose", "system"};

struct Failure
{
    std::atomic<unsigned int> times{0};
    std::atomic<int> errnoValue{0};
};

/// Constant-initialised, all of it: the allocator asks here before anything is constructed.
std::array<Failure, NAMED_FAILURE_POINT_COUNT> failures;

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kKnownCalls = 4096;

std::atomic<bool> numbersCalls{false};
std::atomic<std::size_t> callCount{0};
std::atomic<std::size_t> failingCall{kNever};
std::atomic<int> failingErrno{0};
std::array<std::atomic<unsigned char>, kKnownCalls> knownCalls;

/// A size: not every 32-bit processor has atomic access to 64 bits.
constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

std::atomic<std::size_t> roomLeft{kNoLimit};

bool failsByName(FailurePoint point, const void* returnAddress)
{
    if (point >= NAMED_FAILURE_POINT_COUNT) {
        return false;
    }
    Failure& failure = failures[point];
    unsigned int left = failure.times.load(std::memory_order_relaxed);
    if (left == 0 || !isLibraryCall(returnAddress)) {
        return false;
    }
    while (left != 0 && !failure.times.compare_exchange_weak(left, left - 1)) {
    }
    if (left != 0) {
        errno = failure.errnoValue;
    }
    return left != 0;
}

bool failsByNumber(FailurePoint point, const void* returnAddress)
{
    // Nearly every container allocates by malloc: operator new has tests of its own.
    if (!numbersCalls.load(std::memory_order_relaxed) || point == FAIL_MALLOC || OwnWork::isGoingOn() ||
        !isLibraryCall(returnAddress)) {
        return false;
    }
    const std::size_t number = callCount++;
    if (number < kKnownCalls) {
        knownCalls[number] = static_cast<unsigned char>(point);
    }
    if (number != failingCall) {
        return false;
    }
    errno = failingErrno;
    return true;
}

void startNumbers(std::size_t failing, int errnoValue)
{
    callCount = 0;
    failingErrno = errnoValue;
    failingCall = failing;
    numbersCalls = true;
}
}  // namespace

bool failsNow(FailurePoint point, const void* returnAddress)
{
    return failsByName(point, returnAddress) || failsByNumber(point, returnAddress);
}

std::size_t takeRoom(std::size_t count, const void* returnAddress)
{
    std::size_t left = roomLeft.load(std::memory_order_relaxed);
    if (left == kNoLimit || OwnWork::isGoingOn() || !isLibraryCall(returnAddress)) {
        return count;
    }
    std::size_t taken = 0;
    do {
        taken = left < count ? left : count;
    } while (!roomLeft.compare_exchange_weak(left, left - taken));
    return taken;
}

void disarmFailures()
{
    for (Failure& failure : failures) {
        failure.times = 0;
    }
    numbersCalls = false;
    failingCall = kNever;
    roomLeft = kNoLimit;
}
}  // namespace sandbox

bool Sandbox::fail(const std::string& function, int errnoValue, unsigned int times)
{
    for (std::size_t point = 0; point < sandbox::NAMED_FAILURE_POINT_COUNT; ++point) {
        if (function == sandbox::names[point]) {
            sandbox::failures[point].errnoValue = errnoValue;
            sandbox::failures[point].times = times;
            return true;
        }
    }
    return false;
}

std::vector<std::string> Sandbox::failurePoints()
{
    return {sandbox::names.begin(), sandbox::names.begin() + sandbox::NAMED_FAILURE_POINT_COUNT};
}

void Sandbox::numberCalls()
{
    sandbox::startNumbers(sandbox::kNever, 0);
}

void Sandbox::failCall(std::size_t number, int errnoValue)
{
    sandbox::startNumbers(number, errnoValue);
}

std::vector<std::string> Sandbox::numberedCalls()
{
    std::vector<std::string> calls;
    for (std::size_t number = 0; number < sandbox::callCount && number < sandbox::kKnownCalls; ++number) {
        calls.emplace_back(sandbox::names[sandbox::knownCalls[number]]);
    }
    return calls;
}

void Sandbox::setRoom(std::optional<std::size_t> octets)
{
    sandbox::roomLeft = octets.value_or(sandbox::kNoLimit);
}
