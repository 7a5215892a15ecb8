#include "model/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

#include "model/Errors.h"

namespace olt {

namespace {

/// A device or a pipe can't be replaced, only written.
bool isReplaceable(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode);
}

void write(const std::string& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text << std::flush;
    if (!file)
        throw UsageError(path + ": can't be written: " + std::strerror(errno));
}

}  // namespace

void writeFileAtomically(const std::string& path, const std::string& text)
{
    if (!isReplaceable(path))
        return write(path, text);
    const std::string draft = path + ".part." + std::to_string(getpid());
    try {
        write(draft, text);
        if (std::rename(draft.c_str(), path.c_str()) != 0)
            throw UsageError(path + ": can't be written: " + std::strerror(errno));
    } catch (const UsageError&) {
        unlink(draft.c_str());
        throw;
    }
}

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw UsageError(path + ": can't be read: " + std::strerror(errno));
    try {
        return {std::istreambuf_iterator<char>(file), {}};
    } catch (const std::ios_base::failure&) {
        // A directory opens like a file.
        throw UsageError(path + ": can't be read; it is no ordinary file");
    }
}

}  // namespace olt
