#include "board/BoardFiles.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "sandbox/Sandbox.h"

namespace fs = std::filesystem;

namespace board {

std::string path(const std::string& name)
{
    return Sandbox::realPath(name);
}

std::optional<std::string> readFile(const std::string& name)
{
    std::ifstream file(path(name), std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void writeFile(const std::string& name, const std::string& contents)
{
    const fs::path real = path(name);
    const fs::path fresh = real.string() + ".new";
    fs::create_directories(real.parent_path());
    {
        std::ofstream file(fresh, std::ios::binary);
        file << contents;
        if (!file.flush()) {
            const int error = errno;
            std::error_code ignored;
            fs::remove(fresh, ignored);
            throw std::system_error(error, std::generic_category(), "cannot write " + fresh.string());
        }
    }
    fs::rename(fresh, real);
}

void removeFile(const std::string& name)
{
    std::error_code ignored;
    fs::remove(path(name), ignored);
}

}  // namespace board
