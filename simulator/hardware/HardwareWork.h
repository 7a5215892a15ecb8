#ifndef SIMULATOR_HARDWARE_HARDWARE_WORK_H
#define SIMULATOR_HARDWARE_HARDWARE_WORK_H

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "hardware/HardwareCall.h"

/// What the simulated chip still has to do after the calls that asked for it have returned, in their order. On the
/// library's thread.
class HardwareWork
{
public:
    using Clock = std::chrono::steady_clock;
    using Action = std::function<void()>;

    explicit HardwareWork(HardwareRecorder& recorder) : m_Recorder(recorder) {}

    /// Takes the time at which something is to be done next, whenever that changes; nothing: nothing is left to do.
    void onNextTime(std::function<void(std::optional<Clock::time_point>)> timer) { m_Timer = std::move(timer); }

    /// What a call asked for: done at once without a delay, unless something older is still to be done; otherwise
    /// later, and then a line of the hardware log says so.
    void add(const HardwareCall& call, std::chrono::milliseconds delay, Action action);
    /// Does what is due by now.
    void doDue();
    /// Does all that is left, whatever its time.
    void finish();

private:
    struct Piece
    {
        Clock::time_point due;
        std::string operation;
        std::uint64_t number;
        Action action;
    };

    void doFirst();
    void tellNextTime();

    HardwareRecorder& m_Recorder;
    std::function<void(std::optional<Clock::time_point>)> m_Timer;
    std::deque<Piece> m_Pieces;
};

#endif
