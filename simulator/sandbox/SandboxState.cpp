#include "SandboxState.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace sandbox {
namespace {
thread_local unsigned int ownWorkDepth = 0;
}  // namespace

State& State::get()
{
    static State* state = new State;
    return *state;
}

void State::useDirectory(const std::string& directory)
{
    std::string absolute = fs::absolute(directory).lexically_normal().string();
    while (absolute.size() > 1 && absolute.back() == '/') {
        absolute.pop_back();
    }
    const OwnWork ownWork;
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Directory = absolute;
    // A board always has a /tmp.
    fs::create_directories(absolute + "/tmp");
}

std::string State::directory()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return directoryLocked();
}

const std::string& State::directoryLocked()
{
    if (m_Directory.empty()) {
        makePrivateDirectory();
    }
    return m_Directory;
}

void State::makePrivateDirectory()
{
    const OwnWork ownWork;
    const char* base = std::getenv("TMPDIR");
    std::string name = std::string(base != nullptr && base[0] == '/' ? base : "/tmp") + "/onu-sandbox-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "cannot make a private directory " + name);
    }
    m_Directory = name;
    m_PrivateDirectory = name;
    m_PrivateDirectoryOwner = getpid();
    std::atexit(removePrivateDirectory);
    fs::create_directory(name + "/tmp");
}

void State::removePrivateDirectory()
{
    State& state = get();
    const std::lock_guard<std::mutex> lock(state.m_Mutex);
    // A forked child that exits must not take its parent's files away.
    if (state.m_PrivateDirectoryOwner == getpid()) {
        const OwnWork ownWork;
        std::error_code ignored;
        fs::remove_all(state.m_PrivateDirectory, ignored);
    }
}

/// Whether a build that counts coverage writes its counts, which the compiler put into the library.
static bool isCoverage([[maybe_unused]] const std::string& path)
{
#ifdef NRVK_COVERAGE
    return fs::path(path).extension() == ".gcda";
#else
    return false;
#endif
}

std::string State::realPath(const std::string& path)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    // Made normal first, so that no "/../" leads out of the directory.
    std::string normal = fs::path(path).lexically_normal().string();
    if (normal.empty() || normal[0] != '/' || isCoverage(normal)) {
        return path;
    }
    const std::string& directory = directoryLocked();
    const bool isBelow = normal.compare(0, directory.size(), directory) == 0 &&
                         (normal.size() == directory.size() || normal[directory.size()] == '/');
    return isBelow ? normal : directory + normal;
}

void State::exempt(const std::string& path)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Exempt.insert(path);
}

bool State::isExempt(const std::string& path)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Exempt.count(path) != 0;
}

int State::runCommand(const char* command)
{
    Sandbox::CommandHandler handler;
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Commands.emplace_back(command);
        if (m_Commands.size() > Sandbox::kRememberedCommands) {
            m_Commands.pop_front();
        }
        handler = m_CommandHandler;
    }
    return handler ? handler(command) : 0;
}

void State::setCommandHandler(Sandbox::CommandHandler handler)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_CommandHandler = std::move(handler);
}

std::vector<std::string> State::commands()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return {m_Commands.begin(), m_Commands.end()};
}

void State::clearCommands()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Commands.clear();
}

void State::setFreeSpace(std::optional<std::uint64_t> bytes)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_FreeSpace = bytes;
}

std::optional<std::uint64_t> State::freeSpace()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_FreeSpace;
}

void State::reset()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Commands.clear();
    m_CommandHandler = nullptr;
    m_FreeSpace.reset();
    m_Exempt.clear();
    disarmFailures();
}

OwnWork::OwnWork()
{
    ++ownWorkDepth;
}

OwnWork::~OwnWork()
{
    --ownWorkDepth;
}

bool OwnWork::isGoingOn()
{
    return ownWorkDepth != 0;
}

void* nextSymbol(const char* name)
{
    void* symbol = dlsym(RTLD_NEXT, name);
    if (symbol == nullptr) {
        constexpr char text[] = "sandbox: the C library lacks a function that is stood in for\n";
        static_cast<void>(!::write(STDERR_FILENO, text, sizeof text - 1));
        std::abort();
    }
    return symbol;
}
}  // namespace sandbox

void Sandbox::useDirectory(const std::string& directory)
{
    sandbox::State::get().useDirectory(directory);
}

std::string Sandbox::directory()
{
    return sandbox::State::get().directory();
}

std::string Sandbox::realPath(const std::string& path)
{
    return sandbox::State::get().realPath(path);
}

void Sandbox::setLibraryAddress(const void* address)
{
    sandbox::setLibraryImage(address);
}

void Sandbox::exempt(const std::string& path)
{
    sandbox::State::get().exempt(path);
}

void Sandbox::setCommandHandler(CommandHandler handler)
{
    sandbox::State::get().setCommandHandler(std::move(handler));
}

std::vector<std::string> Sandbox::commands()
{
    return sandbox::State::get().commands();
}

void Sandbox::clearCommands()
{
    sandbox::State::get().clearCommands();
}

void Sandbox::setFreeSpace(std::optional<std::uint64_t> bytes)
{
    sandbox::State::get().setFreeSpace(bytes);
}

void Sandbox::reset()
{
    sandbox::State::get().reset();
}
