#ifndef TESTS_FAULTS_WATCHDOG_H
#define TESTS_FAULTS_WATCHDOG_H

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

/// Ends the program, with a word about what it was at, when it lives for too long: a deadlock is no hang.
class Watchdog
{
public:
    explicit Watchdog(std::chrono::seconds limit) : m_Thread([this, limit] { watch(limit); }) {}
    ~Watchdog()
    {
        {
            const std::lock_guard<std::mutex> lock(m_Mutex);
            m_IsOver = true;
        }
        m_Changed.notify_all();
        m_Thread.join();
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// What begins now.
    void note(const std::string& work)
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Work = work;
    }

private:
    void watch(std::chrono::seconds limit)
    {
        std::unique_lock<std::mutex> lock(m_Mutex);
        if (m_Changed.wait_for(lock, limit, [this] { return m_IsOver; })) {
            return;
        }
        std::fprintf(stderr, "[  FAILED  ] deadlock: not through within %lld s, last at: %s\n",
                     static_cast<long long>(limit.count()), m_Work.c_str());
        std::_Exit(1);
    }

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::string m_Work = "the start";
    bool m_IsOver = false;
    std::thread m_Thread;
};

#endif
