#ifndef OMCI_HOST_NORVIK_TIMER_H
#define OMCI_HOST_NORVIK_TIMER_H

#include <csignal>
#include <memory>

/// One-shot timer.
class NorvikTimer
{
public:
    /// `handler` runs on a thread of the timer's own with `argument` in `sigval::sival_ptr`.
    NorvikTimer(void (*handler)(sigval), void* argument);
    /// Stops the timer; waits for a handler that is running on another thread.
    ~NorvikTimer();

    NorvikTimer(const NorvikTimer&) = delete;
    NorvikTimer& operator=(const NorvikTimer&) = delete;

    /// Starts, or starts again when running.
    void startOneShotTimer(unsigned int milliseconds);
    void stopTimer();

private:
    struct State;
    std::unique_ptr<State> m_State;
};

#endif
