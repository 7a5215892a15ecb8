#include "hardware/HardwareWork.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "ProgramLog.h"

void HardwareWork::add(const HardwareCall& call, std::chrono::milliseconds delay, Action action)
{
    if (delay.count() == 0 && m_Pieces.empty()) {
        action();
        return;
    }
    Clock::time_point due = Clock::now() + delay;
    if (!m_Pieces.empty()) {
        // A delay that has become shorter overtakes nothing.
        due = std::max(due, m_Pieces.back().due);
    }
    m_Pieces.push_back({due, call.operation(), call.number(), std::move(action)});
    tellNextTime();
}

void HardwareWork::doFirst()
{
    const Piece piece = std::move(m_Pieces.front());
    m_Pieces.pop_front();
    m_Recorder.log.write({{"n", m_Recorder.number.next()}, {"done", piece.operation}, {"of", piece.number}});
    try {
        piece.action();
    } catch (const std::exception& problem) {
        // What it reports to the library may come back to a hardware that throws, and here is no caller to be told.
        logNotice("doFirst", "simulator/hardware/HardwareWork.cpp", __LINE__,
                  "The work of " + piece.operation + " ended early: " + problem.what());
    }
}

void HardwareWork::doDue()
{
    const Clock::time_point now = Clock::now();
    while (!m_Pieces.empty() && m_Pieces.front().due <= now) {
        doFirst();
    }
    tellNextTime();
}

void HardwareWork::finish()
{
    while (!m_Pieces.empty()) {
        doFirst();
    }
    tellNextTime();
}

void HardwareWork::tellNextTime()
{
    if (m_Timer) {
        m_Timer(m_Pieces.empty() ? std::nullopt : std::optional(m_Pieces.front().due));
    }
}
