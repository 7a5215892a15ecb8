#include "sandbox_fixture.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <new>
#include <string>

namespace {
void* doNothing(void*)
{
    return nullptr;
}
}  // namespace

int fixtureSystem(const char* command)
{
    return std::system(command);
}

int fixtureWriteFile(const char* path, const char* text)
{
    const int file = open(path, O_WRONLY | O_CREAT, 0700);
    if (file < 0) {
        return errno;
    }
    const ssize_t written = write(file, text, std::strlen(text));
    const int result = written == static_cast<ssize_t>(std::strlen(text)) ? 0 : errno;
    close(file);
    return result;
}

int fixtureReadLine(const char* path, char* line, std::size_t size)
{
    FILE* file = std::fopen(path, "r");
    if (file == nullptr) {
        return -1;
    }
    const bool hasLine = std::fgets(line, static_cast<int>(size), file) != nullptr;
    std::fclose(file);
    return hasLine ? 0 : -1;
}

int fixtureReadLineByStream(const char* path, char* line, std::size_t size)
{
    std::ifstream stream(path);
    std::string text;
    if (!std::getline(stream, text)) {
        return -1;
    }
    std::strncpy(line, text.c_str(), size - 1);
    line[size - 1] = '\0';
    return 0;
}

int fixtureRemove(const char* path)
{
    const int result = std::remove(path);
    return result == 0 ? 0 : errno;
}

long long fixtureFreeSpace(const char* path)
{
    struct statvfs information;
    if (statvfs(path, &information) != 0) {
        return -1;
    }
    return static_cast<long long>(information.f_frsize) * static_cast<long long>(information.f_bfree);
}

int fixtureRunThread()
{
    pthread_t thread;
    const int result = pthread_create(&thread, nullptr, doNothing, nullptr);
    if (result == 0) {
        pthread_join(thread, nullptr);
    }
    return result;
}

bool fixtureMalloc(std::size_t size)
{
    void* volatile memory = std::malloc(size);
    std::free(memory);
    return memory != nullptr;
}

bool fixtureNew(std::size_t size)
{
    unsigned char* volatile memory = new (std::nothrow) unsigned char[size];
    delete[] memory;
    return memory != nullptr;
}
