#ifndef HOST_STATISTICS_H
#define HOST_STATISTICS_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace omci {

/// Why a received frame went no further and got no reply.
enum class DropReason : std::uint8_t
{
    TooShort,
    UnknownDeviceId,
    InvalidMessageType,
    Truncated,
    Oversized,
    WrongMic,
    NotARequest  ///< a response, or a message that only the ONU sends
};
constexpr std::size_t kDropReasons = 7;

const char* dropReasonName(DropReason reason);

/// Message counters since start. Written by the dispatcher's thread.
struct Statistics
{
    /// Requests taken, by message type number, retransmissions included.
    std::array<std::uint64_t, 32> requests{};
    std::uint64_t baselineRequests = 0;
    std::uint64_t extendedRequests = 0;
    /// Results of what was run, by result number, whether a reply was due or not.
    std::array<std::uint64_t, 16> results{};
    std::array<std::uint64_t, kDropReasons> drops{};
    std::uint64_t replies = 0;
    /// Requests answered from the last reply.
    std::uint64_t retransmissions = 0;
    /// Requests that ended in an exception.
    std::uint64_t exceptions = 0;

    std::uint64_t dropped(DropReason reason) const { return drops[static_cast<std::size_t>(reason)]; }
};

}  // namespace omci

#endif
