#include "terminal/ProgressBar.h"

#include <algorithm>
#include <cstdio>

namespace olt {

namespace {

constexpr std::chrono::milliseconds kPause{50};
constexpr std::size_t kWidest = 40;

}  // namespace

ProgressBar::ProgressBar(const Terminal& terminal, std::string label)
    : m_Terminal(terminal), m_Label(std::move(label)), m_Next(Clock::now())
{}

ProgressBar::~ProgressBar()
{
    if (m_Drawn)
        std::fputs("\r\033[K", stderr);
}

void ProgressBar::show(std::size_t done, std::size_t total, const std::string& note)
{
    if (!m_Terminal.showsProgress() || total == 0 || (Clock::now() < m_Next && done < total))
        return;
    m_Next = Clock::now() + kPause;
    const std::string numbers =
        " " + std::to_string(done) + "/" + std::to_string(total) + (note.empty() ? "" : "  " + note);
    const std::size_t taken = m_Label.size() + numbers.size() + 4;
    const std::size_t columns = m_Terminal.progressWidth();
    const std::size_t width = std::min(kWidest, columns > taken ? columns - taken : 0);
    const std::size_t filled = std::min(width, width * done / total);
    const std::string bar = "[" + std::string(filled, '#') + std::string(width - filled, '.') + "]";
    const std::string line = (m_Label + " " + bar + numbers).substr(0, columns - 1);
    std::fprintf(stderr, "\r%s\033[K", line.c_str());
    std::fflush(stderr);
    m_Drawn = true;
}

}  // namespace olt
