#ifndef OLT_SESSION_CHANNEL_H
#define OLT_SESSION_CHANNEL_H

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace olt {

using Clock = std::chrono::steady_clock;

/// The road to one ONU: a datagram carries one OMCI frame and may be lost, late, doubled or damaged.
class Channel
{
public:
    virtual ~Channel() = default;

    virtual void send(const std::uint8_t* data, std::size_t size) = 0;

    /// The next datagram, or none when `deadline` passes first. Throws Interrupted on Ctrl-C.
    [[nodiscard]] virtual std::optional<std::vector<std::uint8_t>> receive(Clock::time_point deadline) = 0;

    /// Why nothing can come, as far as the road itself can tell ("connection refused"); else empty.
    [[nodiscard]] virtual std::string trouble() const { return ""; }
};

}  // namespace olt

#endif
