#ifndef SIMULATOR_JSON_LOG_H
#define SIMULATOR_JSON_LOG_H

#include <sys/types.h>

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
/// out at once. When the file takes no more, standard error tells so, and it ends with a whole line.
class JsonLog
{
public:
    /// Starts an empty file; std::system_error when it cannot be made.
    void open(const std::string& path);
    bool isOpen() const { return m_File != nullptr && !m_HasEnded; }

    void write(const Json& line);
    void flush();

private:
    struct Close
    {
        void operator()(FILE* file) const { std::fclose(file); }
    };

    void flushLocked();

    std::mutex m_Mutex;
    std::string m_Path;
    std::unique_ptr<FILE, Close> m_File;
    off_t m_Written = 0;  ///< octets, up to the end of a line
    std::atomic<bool> m_HasEnded{false};
    std::thread::id m_Owner;
};

#endif
