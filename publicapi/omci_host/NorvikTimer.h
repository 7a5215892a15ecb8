#ifndef OMCI_HOST_NORVIK_TIMER_H
#define OMCI_HOST_NORVIK_TIMER_H

#include <csignal>
#include <memory>
#include <vector>

/// One-shot timer. All timers of the process share one thread, which runs their handlers one after the other.
///
/// Any thread may call, handlers included. Starting a timer again costs a lock and a look at the clock.
class NorvikTimer
{
public:
    /// What runs when the time is up: `sigval::sival_ptr` is the timer's argument.
    using Handler = void (*)(sigval);

    /// `handler` runs on a thread of the timers' own with `argument` in `sigval::sival_ptr`.
    NorvikTimer(void (*handler)(sigval), void* argument);
    /// Stops the timer; waits for its handler when that is running on another thread.
    ~NorvikTimer();

    NorvikTimer(const NorvikTimer&) = delete;
    NorvikTimer& operator=(const NorvikTimer&) = delete;

    /// Starts, or starts again when running. std::system_error when the timers' thread is still to be made and cannot
    /// be: the timer does not run then.
    void startOneShotTimer(unsigned int milliseconds);
    /// Does not wait for a handler that is running.
    void stopTimer();

    /// All timers started from now on run `factor` times faster; 1 at first. Not above 0: ignored.
    static void setTimeScale(double factor);

    /// A timer that waits for its time.
    struct Running
    {
        Handler handler;  ///< as given to the constructor
        /// In the timer's own, unscaled time; 0 when due.
        unsigned int millisecondsLeft;
    };
    /// The timers that wait for their time.
    static std::vector<Running> getRunningTimers();

private:
    struct State;
    class Service;

    std::unique_ptr<State> m_State;
};

#endif
