// Open files: what the C library's functions of these names do for everybody in the process, and that they may fail.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "Interpose.h"

using namespace sandbox;

extern "C" {
ssize_t sandboxWrite(int file, const void* bytes, std::size_t count) SANDBOX_STANDS_FOR("write");
int sandboxClose(int file) SANDBOX_STANDS_FOR("close");
int sandboxFstat(int file, struct stat* out) SANDBOX_STANDS_FOR("fstat");
int sandboxFstat64(int file, struct stat64* out) SANDBOX_STANDS_FOR("fstat64");
char* sandboxFgets(char* line, int size, FILE* file) SANDBOX_STANDS_FOR("fgets");
std::size_t sandboxFread(void* bytes, std::size_t size, std::size_t count, FILE* file) SANDBOX_STANDS_FOR("fread");
int sandboxFseek(FILE* file, long offset, int whence) SANDBOX_STANDS_FOR("fseek");
long sandboxFtell(FILE* file) SANDBOX_STANDS_FOR("ftell");
int sandboxFclose(FILE* file) SANDBOX_STANDS_FOR("fclose");
}

ssize_t sandboxWrite(int file, const void* bytes, std::size_t count)
{
    SANDBOX_REAL(decltype(&sandboxWrite), "write");
    const void* const caller = SANDBOX_CALLER;
    if (failsNow(FAIL_WRITE, caller)) {
        return -1;
    }
    const std::size_t room = takeRoom(count, caller);
    if (room == 0 && count != 0) {
        errno = ENOSPC;
        return -1;
    }
    return real(file, bytes, room);
}

int sandboxClose(int file)
{
    SANDBOX_REAL(decltype(&sandboxClose), "close");
    const int result = real(file);
    return failsNow(FAIL_CLOSE, SANDBOX_CALLER) ? -1 : result;
}

int sandboxFclose(FILE* file)
{
    SANDBOX_REAL(decltype(&sandboxFclose), "fclose");
    const int result = real(file);
    return failsNow(FAIL_FCLOSE, SANDBOX_CALLER) ? EOF : result;
}

#define SANDBOX_MAY_FAIL(result, function, symbol, point, failed, declared, passed)                                    \
    result function declared                                                                                           \
    {                                                                                                                  \
        SANDBOX_REAL(decltype(&function), symbol);                                                                     \
        return failsNow(point, SANDBOX_CALLER) ? failed : real passed;                                                 \
    }

SANDBOX_MAY_FAIL(int, sandboxFstat, "fstat", FAIL_FSTAT, -1, (int file, struct stat* out), (file, out))
SANDBOX_MAY_FAIL(int, sandboxFstat64, "fstat64", FAIL_FSTAT, -1, (int file, struct stat64* out), (file, out))
SANDBOX_MAY_FAIL(char*, sandboxFgets, "fgets", FAIL_FGETS, nullptr, (char* line, int size, FILE* file),
                 (line, size, file))
SANDBOX_MAY_FAIL(std::size_t, sandboxFread, "fread", FAIL_FREAD, 0,
                 (void* bytes, std::size_t size, std::size_t count, FILE* file), (bytes, size, count, file))
SANDBOX_MAY_FAIL(int, sandboxFseek, "fseek", FAIL_FSEEK, -1, (FILE * file, long offset, int whence),
                 (file, offset, whence))
SANDBOX_MAY_FAIL(long, sandboxFtell, "ftell", FAIL_FTELL, -1, (FILE * file), (file))
