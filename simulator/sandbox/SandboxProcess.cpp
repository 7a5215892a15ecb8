// Commands, threads and memory: what the C library's functions of these names do for everybody in the process.
#include <pthread.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "Interpose.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SANDBOX_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SANDBOX_SANITIZED 1
#endif
#endif

using namespace sandbox;

extern "C" {
int sandboxSystem(const char* command) SANDBOX_STANDS_FOR("system");
FILE* sandboxPopen(const char* command, const char* mode) SANDBOX_STANDS_FOR("popen");
int sandboxReboot(int how) SANDBOX_STANDS_FOR("reboot");
int sandboxPthreadCreate(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*), void* argument)
    SANDBOX_STANDS_FOR("pthread_create");
}

int sandboxSystem(const char* command)
{
    if (command == nullptr) {
        // Asks whether there is a shell. There is a stand-in.
        return 1;
    }
    return failsNow(FAIL_SYSTEM, SANDBOX_CALLER) ? -1 : State::get().runCommand(command);
}

FILE* sandboxPopen(const char* command, const char*)
{
    State::get().runCommand(command);
    errno = ENOSYS;
    return nullptr;
}

int sandboxReboot(int)
{
    State::get().runCommand("reboot(2)");
    errno = EPERM;
    return -1;
}

int sandboxPthreadCreate(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*), void* argument)
{
    SANDBOX_REAL(decltype(&sandboxPthreadCreate), "pthread_create");
    return failsNow(FAIL_PTHREAD_CREATE, SANDBOX_CALLER) ? errno : real(thread, attributes, start, argument);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    if (failsNow(FAIL_MALLOC, SANDBOX_CALLER)) {
        return nullptr;
    }
    try {
        return ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

// The sanitizers own the allocator; behind their back only the non-throwing new can be made to fail.
#ifndef SANDBOX_SANITIZED

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* sandboxMalloc(std::size_t size) SANDBOX_STANDS_FOR("malloc");
void* sandboxCalloc(std::size_t count, std::size_t size) SANDBOX_STANDS_FOR("calloc");
}

void* sandboxMalloc(std::size_t size)
{
    return failsNow(FAIL_MALLOC, SANDBOX_CALLER) ? nullptr : __libc_malloc(size);
}

void* sandboxCalloc(std::size_t count, std::size_t size)
{
    const void* const caller = SANDBOX_CALLER;
    return failsNow(FAIL_MALLOC, caller) || failsNow(FAIL_CALLOC, caller) ? nullptr : __libc_calloc(count, size);
}

#endif
