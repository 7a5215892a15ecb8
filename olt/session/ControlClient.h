#ifndef OLT_SESSION_CONTROL_CLIENT_H
#define OLT_SESSION_CONTROL_CLIENT_H

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>

namespace olt {

/// Asks onu-sim over its control socket: one object out, one back. Throws Unreachable when nobody answers in time, and
/// BadAnswer when the answer is an error or no answer at all.
[[nodiscard]] nlohmann::ordered_json askControl(const std::string& path, const nlohmann::ordered_json& request,
                                                std::chrono::milliseconds timeout);

}  // namespace olt

#endif
