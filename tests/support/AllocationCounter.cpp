// In a file of its own, so that no call of the replaced operators is inlined and taken for a mismatch.

#include "AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t g_Allocations = 0;

}  // namespace

std::size_t allocationsOfThisThread()
{
    return g_Allocations;
}

void* operator new(std::size_t size)
{
    ++g_Allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
