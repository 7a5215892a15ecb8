// The board file: it is taken or refused in words.
#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "BoardFile.h"
#include "FuzzedOnu.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const int file = memfd_create("board.ini", MFD_CLOEXEC);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    FUZZ_CHECK(ftruncate(file, 0) == 0);
    FUZZ_CHECK(pwrite(file, data, size, 0) == static_cast<ssize_t>(size));
    try {
        readBoardFile(path);
    } catch (const std::runtime_error& problem) {
        FUZZ_CHECK(std::string(problem.what()).find(path) != std::string::npos);
    }
    return 0;
}
