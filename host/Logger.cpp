#include "omci_host/Logger.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/stdout_color_sinks.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <map>
#include <mutex>
#include <vector>

#include "LogSink.h"

namespace {

constexpr int kDirectIds = 256;
constexpr unsigned char kEveryLevel = 255;

/// Loggers of small ids, found without a lock: every log line of the library asks for its own.
std::array<std::atomic<Logger*>, kDirectIds> directLoggers{};

bool isDirect(int id)
{
    return id >= 0 && id < kDirectIds;
}

/// The one back end of all Loggers. Never destroyed: libraries log from static destructors.
spdlog::logger& backEnd()
{
    static auto* const logger = [] {
        auto* made = new spdlog::logger("omci", std::make_shared<spdlog::sinks::stderr_color_sink_mt>());
        made->set_level(spdlog::level::trace);
        made->set_pattern("%Y-%m-%d %H:%M:%S.%e %^%l%$ %v");
        made->flush_on(spdlog::level::trace);
        return made;
    }();
    return *logger;
}

spdlog::level::level_enum severity(unsigned char level)
{
    switch (level) {
    case 0:
    case 1:
    case 2:
        return spdlog::level::critical;
    case 3:
        return spdlog::level::err;
    case 4:
        return spdlog::level::warn;
    case 5:
    case 6:
        return spdlog::level::info;
    default:
        return spdlog::level::debug;
    }
}

}  // namespace

void omci::setLogSink(std::shared_ptr<spdlog::sinks::sink> sink)
{
    backEnd().sinks() = {std::move(sink)};
}

Logger* Logger::makeInstance(int id)
{
    static std::mutex mutex;
    static auto* const loggers = new std::map<int, Logger*>;
    const std::lock_guard lock(mutex);
    Logger*& logger = (*loggers)[id];
    if (logger == nullptr) {
        logger = new Logger;
    }
    if (isDirect(id)) {
        directLoggers[static_cast<std::size_t>(id)].store(logger, std::memory_order_release);
    }
    return logger;
}

Logger* Logger::getInstance(int id)
{
    Logger* known = nullptr;
    if (isDirect(id)) {
        known = directLoggers[static_cast<std::size_t>(id)].load(std::memory_order_acquire);
    }
    return known != nullptr ? known : makeInstance(id);
}

const std::atomic<unsigned char>& Logger::getLevelInForce(int id)
{
    return getInstance(id)->m_FormatLevel;
}

void Logger::setLevel(unsigned char level)
{
    m_Level = level;
    m_FormatLevel = m_Observer.load() != nullptr ? kEveryLevel : level;
}

unsigned char Logger::getLevel() const
{
    return m_Level;
}

void Logger::setObserver(Observer observer, void* context)
{
    // The context first: a line on another thread must not meet the new observer with the old context.
    m_ObserverContext = context;
    m_Observer = observer;
    m_FormatLevel = observer != nullptr ? kEveryLevel : m_Level.load();
}

void Logger::writeToLog(signed char /*reserved*/, const std::string& function, const std::string& file,
                        unsigned int line, unsigned char level, const char* format, ...)
{
    if (level > m_FormatLevel.load(std::memory_order_relaxed)) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    writeLine(function, file, line, level, format, arguments);
    va_end(arguments);
}

void Logger::writeLine(const std::string& function, const std::string& file, unsigned int line, unsigned char level,
                       const char* format, va_list arguments)
{
    std::array<char, 512> shortText;
    std::vector<char> longText;
    const char* text = shortText.data();
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(shortText.data(), shortText.size(), format, arguments);
    if (length < 0) {
        text = format;
    } else if (static_cast<std::size_t>(length) >= shortText.size()) {
        longText.resize(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(longText.data(), longText.size(), format, again);
        text = longText.data();
    }
    va_end(again);
    if (const Observer observer = m_Observer.load(std::memory_order_acquire)) {
        observer({level, function, file, line, text}, m_ObserverContext.load(std::memory_order_acquire));
    }
    if (level <= m_Level.load(std::memory_order_relaxed)) {
        backEnd().log(severity(level), "{}:{} {}: {}", file, line, function, text);
    }
}
