#include "impl/Log.h"

#include <mutex>
#include <set>

namespace nrvk {

namespace {

constexpr std::atomic<unsigned char> kEveryLevel{255};

}  // namespace

std::atomic<Logger*> loggerOfLibrary{nullptr};
std::atomic<const std::atomic<unsigned char>*> levelInForce{&kEveryLevel};

Logger& askForLogger()
{
    Logger* logger = Logger::getInstance(kLoggerId);
    loggerOfLibrary.store(logger, std::memory_order_relaxed);
    if (&Logger::getLevelInForce != nullptr) {
        levelInForce.store(&Logger::getLevelInForce(kLoggerId), std::memory_order_relaxed);
    }
    return *logger;
}

const std::string& internLogName(const std::string& name)
{
    // Never destroyed: log calls may come from timer and writer threads while the process ends.
    static auto& names = *new std::set<std::string>;
    static auto& mutex = *new std::mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    return *names.insert(name).first;
}

const std::string& LogName::make() const
{
    const std::string& name = internLogName(m_Text);
    m_Name.store(&name, std::memory_order_release);
    return name;
}

}  // namespace nrvk
