#ifndef OLT_TERMINAL_PROGRESS_BAR_H
#define OLT_TERMINAL_PROGRESS_BAR_H

#include <chrono>
#include <string>

#include "terminal/Terminal.h"

namespace olt {

/// One line on standard error that grows, on a terminal only. It is wiped when the object goes, whatever the reason.
class ProgressBar
{
public:
    ProgressBar(const Terminal& terminal, std::string label);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// Draws at most some twenty times a second. `note` stands behind the bar.
    void show(std::size_t done, std::size_t total, const std::string& note = "");

private:
    using Clock = std::chrono::steady_clock;

    const Terminal& m_Terminal;
    std::string m_Label;
    Clock::time_point m_Next;
    bool m_Drawn = false;
};

}  // namespace olt

#endif
