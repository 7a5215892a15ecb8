// The board file: it is taken or refused in words.
#include <stdexcept>

#include "BoardFile.h"
#include "InputFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::InputFile file;
    file.write(data, size);
    try {
        readBoardFile(file.path());
    } catch (const std::runtime_error& problem) {
        FUZZ_CHECK(std::string(problem.what()).find(file.path()) != std::string::npos);
    }
    return 0;
}
