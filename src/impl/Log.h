#ifndef NRVK_IMPL_LOG_H
#define NRVK_IMPL_LOG_H

#include <atomic>
#include <string>
#include <type_traits>

#include "Logger.h"

namespace nrvk {

constexpr int kLoggerId = 150;

extern std::atomic<Logger*> loggerOfLibrary;
Logger& askForLogger();

/// The host's own number, so that a change shows at once. Until the first line has asked for it, and for good with a
/// host that has none, it is a level above all.
extern std::atomic<const std::atomic<unsigned char>*> levelInForce;

/// Whether the host drops lines of the level unseen: what makes them can then be left out.
inline bool isDropped(unsigned char level)
{
    return level > levelInForce.load(std::memory_order_relaxed)->load(std::memory_order_relaxed);
}

/// The host's logger for the library; there is one for each id, kept for the life of the process.
inline Logger& logger()
{
    Logger* known = loggerOfLibrary.load(std::memory_order_relaxed);
    return __builtin_expect(known != nullptr, 1) ? *known : askForLogger();
}

/// A name that the host's logger takes as std::string. The string is made for the first line and kept, so that a warm
/// log call allocates nothing.
class LogName
{
public:
    constexpr explicit LogName(const char* text) : m_Text(text) {}

    const std::string& get() const
    {
        const std::string* name = m_Name.load(std::memory_order_acquire);
        return __builtin_expect(name != nullptr, 1) ? *name : make();
    }

private:
    const std::string& make() const;

    const char* m_Text;
    mutable std::atomic<const std::string*> m_Name{nullptr};
};

/// The one copy of a name that all its users share; never freed.
const std::string& internLogName(const std::string& name);

/// A place in the code that logs.
struct LogSite
{
    LogName function;
    LogName file;
    unsigned int line;
    unsigned char level;
};

/// The types in which arguments reach printf, so that call sites share one instance of logAt.
template <typename T>
auto logArgument(T value)
{
    if constexpr (std::is_enum_v<T> || (std::is_integral_v<T> && sizeof(T) < sizeof(int))) {
        return static_cast<int>(value);
    } else if constexpr (std::is_integral_v<T>) {
        return static_cast<std::make_unsigned_t<T>>(value);
    } else if constexpr (std::is_same_v<T, char*> || std::is_same_v<T, const char*>) {
        return static_cast<const char*>(value);
    } else {
        static_assert(std::is_pointer_v<T>);
        return static_cast<const void*>(value);
    }
}

// The format is a literal at every NRVK_LOG; here it is not one any more.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
/// Out of line on purpose: a call site then costs a few instructions.
template <typename... Arguments>
[[gnu::noinline]] void logAt(const LogSite& site, const char* format, Arguments... arguments)
{
    if (isDropped(site.level)) {
        return;
    }
    logger().writeToLog(0, site.function.get(), site.file.get(), site.line, site.level, format, arguments...);
}
#pragma GCC diagnostic pop

template <typename... Arguments>
inline void logLine(const LogSite& site, const char* format, Arguments... arguments)
{
    logAt(site, format, logArgument(arguments)...);
}

}  // namespace nrvk

/// NRVK_LOG(level, format, arguments...): one line through the host's logger, with the function, file and line it
/// stands in.
#define NRVK_LOG(level, ...)                                                                                           \
    do {                                                                                                               \
        static const ::nrvk::LogSite nrvkLogSite{::nrvk::LogName(__func__), ::nrvk::LogName(__FILE__), __LINE__,       \
                                                 level};                                                               \
        ::nrvk::logLine(nrvkLogSite, __VA_ARGS__);                                                                     \
    } while (false)

/// The same with arguments that cost: they are not evaluated for a line that is dropped.
#define NRVK_LOG_RENDERED(level, ...)                                                                                  \
    do {                                                                                                               \
        if (!::nrvk::isDropped(level)) {                                                                               \
            NRVK_LOG(level, __VA_ARGS__);                                                                              \
        }                                                                                                              \
    } while (false)

/// The same where no exception may get out: without memory for the line there is none.
#define NRVK_LOG_IF_POSSIBLE(level, ...)                                                                               \
    do {                                                                                                               \
        try {                                                                                                          \
            NRVK_LOG(level, __VA_ARGS__);                                                                              \
        } catch (...) {                                                                                                \
            break;                                                                                                     \
        }                                                                                                              \
    } while (false)

#endif
