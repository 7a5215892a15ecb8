#ifndef FUZZ_INPUT_FILE_H
#define FUZZ_INPUT_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <string>

#include "Check.h"

namespace fuzz {

/// A file in memory for what reads files by name.
class InputFile
{
public:
    const std::string& path() const { return m_Path; }

    void write(const std::uint8_t* data, std::size_t size) const
    {
        FUZZ_CHECK(ftruncate(m_Descriptor, 0) == 0);
        FUZZ_CHECK(pwrite(m_Descriptor, data, size, 0) == static_cast<ssize_t>(size));
    }

private:
    // Open for the whole life of the fuzzer.
    const int m_Descriptor = memfd_create("input", MFD_CLOEXEC);
    const std::string m_Path = "/proc/self/fd/" + std::to_string(m_Descriptor);
};

}  // namespace fuzz

#endif
