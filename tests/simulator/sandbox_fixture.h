#ifndef TESTS_SIMULATOR_SANDBOX_FIXTURE_H
#define TESTS_SIMULATOR_SANDBOX_FIXTURE_H

#include <cstddef>

/// A small shared library that does what the managed-entity library does to its machine.
extern "C" {
int fixtureSystem(const char* command);
/// Writes with open and write; yields 0, or errno.
int fixtureWriteFile(const char* path, const char* text);
/// Reads the first line; 0, or -1 when it cannot be opened. By C file, by C++ stream.
int fixtureReadLine(const char* path, char* line, std::size_t size);
int fixtureReadLineByStream(const char* path, char* line, std::size_t size);
int fixtureRemove(const char* path);
/// Free bytes, or -1.
long long fixtureFreeSpace(const char* path);
/// 0, or pthread_create's result.
int fixtureRunThread();
/// Whether memory was got: by malloc, by non-throwing new.
bool fixtureMalloc(std::size_t size);
bool fixtureNew(std::size_t size);
}

#endif
