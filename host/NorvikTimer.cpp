#include "omci_host/NorvikTimer.h"

#include <pthread.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <csignal>
#include <ctime>
#include <exception>
#include <limits>
#include <mutex>
#include <thread>

#include "GuardedLog.h"

using Clock = std::chrono::steady_clock;

namespace {

/// Timers as long as this or longer do with a clock that lags by up to one tick of the system.
constexpr std::chrono::seconds kLong{1};

Clock::duration toDuration(const timespec& time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Not before the present, and a tick or two after it at most: a precise look at the clock is most of what the restart
/// of a timer costs, and restarts come with every frame of a software download.
Clock::time_point roughlyNow()
{
    static const Clock::duration tick = [] {
        timespec resolution{};
        clock_getres(CLOCK_MONOTONIC_COARSE, &resolution);
        return toDuration(resolution);
    }();
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return Clock::time_point(toDuration(now)) + tick;
}

/// Signals are the affair of the host's own thread: a thread made while one lives takes none.
class SignalsHeldBack
{
public:
    SignalsHeldBack()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_Before);
    }
    ~SignalsHeldBack() { pthread_sigmask(SIG_SETMASK, &m_Before, nullptr); }
    SignalsHeldBack(const SignalsHeldBack&) = delete;
    SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

private:
    sigset_t m_Before;
};

void logFailure(const char* what) noexcept
{
    omci::logGuarded([what](Logger& logger) {
        logger.writeToLog(0, "call", "host/NorvikTimer.cpp", __LINE__, 3, "A timer's handler failed(%s)", what);
    });
}

}  // namespace

struct NorvikTimer::State
{
    Handler handler;
    void* argument;
    Clock::time_point deadline{};
    Clock::duration length{};
    double scale = 1;
    bool armed = false;
};

/// The thread behind all timers. Starting a timer again only moves its deadline: the thread finds out when it wakes for
/// the old one, so that a restart per received frame wakes nobody.
class NorvikTimer::Service
{
public:
    static Service& instance()
    {
        // Never destroyed: the thread runs until the process is gone.
        static auto* const service = new Service;
        return *service;
    }

    void add(State* state)
    {
        const std::lock_guard lock(m_Mutex);
        m_States.push_back(state);
    }

    void remove(State* state)
    {
        std::unique_lock lock(m_Mutex);
        m_States.erase(std::remove(m_States.begin(), m_States.end(), state), m_States.end());
        if (std::this_thread::get_id() != m_Thread) {
            m_HandlerDone.wait(lock, [this, state] { return m_Running != state; });
        }
    }

    void start(State* state, unsigned int milliseconds)
    {
        const std::lock_guard lock(m_Mutex);
        startThread();
        state->scale = m_Scale;
        const auto length = std::chrono::duration_cast<Clock::duration>(
            std::chrono::duration<double, std::milli>(milliseconds / m_Scale));
        state->deadline = (length < kLong ? Clock::now() : roughlyNow()) + length;
        state->length = length;
        state->armed = true;
        if (state->deadline < m_WakeTime) {
            m_Changed.notify_one();
        }
    }

    void stop(State* state)
    {
        const std::lock_guard lock(m_Mutex);
        state->armed = false;
    }

    void setScale(double scale)
    {
        const std::lock_guard lock(m_Mutex);
        m_Scale = scale;
    }

    std::vector<Running> running()
    {
        const std::lock_guard lock(m_Mutex);
        const Clock::time_point now = Clock::now();
        std::vector<Running> timers;
        for (const State* state : m_States) {
            if (state->armed) {
                const auto left = std::min(state->deadline - now, state->length);
                const double milliseconds = std::chrono::duration<double, std::milli>(left).count();
                const double unscaled = std::ceil(std::max(0.0, milliseconds * state->scale));
                timers.push_back({state->handler, static_cast<unsigned int>(unscaled)});
            }
        }
        return timers;
    }

private:
    void startThread()
    {
        if (m_Started) {
            return;
        }
        const SignalsHeldBack held;
        std::thread thread([this] { run(); });
        m_Started = true;
        pthread_setname_np(thread.native_handle(), "omciTimer");
        m_Thread = thread.get_id();
        thread.detach();
    }

    State* earliest() const
    {
        State* first = nullptr;
        for (State* state : m_States) {
            if (state->armed && (first == nullptr || state->deadline < first->deadline)) {
                first = state;
            }
        }
        return first;
    }

    [[noreturn]] void run()
    {
        std::unique_lock lock(m_Mutex);
        for (;;) {
            State* const first = earliest();
            if (first == nullptr) {
                m_WakeTime = Clock::time_point::max();
                m_Changed.wait(lock);
            } else if (first->deadline > Clock::now()) {
                m_WakeTime = first->deadline;
                m_Changed.wait_until(lock, m_WakeTime);
            } else {
                runHandler(lock, first);
            }
        }
    }

    void runHandler(std::unique_lock<std::mutex>& lock, State* state)
    {
        state->armed = false;
        m_Running = state;
        const Handler handler = state->handler;
        sigval value{};
        value.sival_ptr = state->argument;
        // The handler may delete its timer: `state` is only compared from here on.
        lock.unlock();
        call(handler, value);
        lock.lock();
        m_Running = nullptr;
        m_HandlerDone.notify_all();
    }

    /// There is no caller on this thread who could be told of an exception.
    static void call(Handler handler, sigval value) noexcept
    {
        try {
            handler(value);
        } catch (const std::exception& exception) {
            logFailure(exception.what());
        } catch (...) {
            logFailure("unknown exception");
        }
    }

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::condition_variable m_HandlerDone;
    std::vector<State*> m_States;
    const State* m_Running = nullptr;
    Clock::time_point m_WakeTime = Clock::time_point::max();
    std::thread::id m_Thread;
    double m_Scale = 1;
    bool m_Started = false;
};

NorvikTimer::NorvikTimer(void (*handler)(sigval), void* argument) : m_State(std::make_unique<State>())
{
    m_State->handler = handler;
    m_State->argument = argument;
    Service::instance().add(m_State.get());
}

NorvikTimer::~NorvikTimer()
{
    Service::instance().remove(m_State.get());
}

void NorvikTimer::startOneShotTimer(unsigned int milliseconds)
{
    Service::instance().start(m_State.get(), milliseconds);
}

void NorvikTimer::stopTimer()
{
    Service::instance().stop(m_State.get());
}

void NorvikTimer::setTimeScale(double factor)
{
    if (factor > 0 && std::isfinite(factor)) {
        Service::instance().setScale(factor);
    }
}

std::vector<NorvikTimer::Running> NorvikTimer::getRunningTimers()
{
    return Service::instance().running();
}
