#ifndef OLT_TERMINAL_TIME_TEXT_H
#define OLT_TERMINAL_TIME_TEXT_H

#include <chrono>
#include <string>

namespace olt {

/// "2026-01-31T12:00:00.123Z" for a time since 1970, with that many decimals of a second (3 or 6).
[[nodiscard]] std::string timeText(std::chrono::microseconds since1970, unsigned decimals);

}  // namespace olt

#endif
