// In a file of its own, so that no call of the replaced operators is inlined and taken for a mismatch.

#include "FailingNew.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

thread_local std::size_t g_Calls = 0;
thread_local std::size_t g_FailingCall = kNever;
std::atomic<std::size_t> g_Blocks{0};

void release(void* memory)
{
    if (memory != nullptr) {
        --g_Blocks;
        std::free(memory);
    }
}

}  // namespace

void failingNew::failAfter(std::size_t calls)
{
    g_Calls = 0;
    g_FailingCall = calls;
}

void failingNew::disarm()
{
    failAfter(kNever);
}

std::size_t failingNew::calls()
{
    return g_Calls;
}

bool failingNew::hasFailed()
{
    return g_Calls > g_FailingCall;
}

std::size_t failingNew::blocks()
{
    return g_Blocks;
}

void* operator new(std::size_t size)
{
    void* const memory = g_Calls++ == g_FailingCall ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++g_Blocks;
    return memory;
}

void operator delete(void* memory) noexcept
{
    release(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    release(memory);
}
