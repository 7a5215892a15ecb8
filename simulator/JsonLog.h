#ifndef SIMULATOR_JSON_LOG_H
#define SIMULATOR_JSON_LOG_H

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "Json.h"

/// Numbers the lines of all logs of the process in the order of what they tell, from 1.
class RunningNumber
{
public:
    std::uint64_t next() { return ++m_Last; }

private:
    std::atomic<std::uint64_t> m_Last{0};
};

/// A file of JSON lines. Lines of the thread that opened it stay in memory until flush; those of any other thread go
/// out at once.
class JsonLog
{
public:
    /// Starts an empty file; std::system_error when it cannot be made.
    void open(const std::string& path);
    bool isOpen() const { return m_File != nullptr; }

    void write(const Json& line);
    void flush();

private:
    struct Close
    {
        void operator()(FILE* file) const { std::fclose(file); }
    };

    std::mutex m_Mutex;
    std::unique_ptr<FILE, Close> m_File;
    std::thread::id m_Owner;
};

#endif
