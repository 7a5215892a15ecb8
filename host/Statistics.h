#ifndef HOST_STATISTICS_H
#define HOST_STATISTICS_H

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>

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
    NotARequest,     ///< a response, or a message that only the ONU sends
    ExtendedRefused  ///< an extended message, and the host is to take baseline ones only
};
/// How many values DropReason has.
constexpr std::size_t kDropReasons = 8;

/// The reason in words for people; static texts.
const char* dropReasonName(DropReason reason);

/// How long the requests to one class took, from the arrival of the frame until its reply was known.
struct HandlerTime
{
    std::uint64_t requests = 0;          ///< taken, refused ones included
    std::chrono::nanoseconds total{};    ///< of all requests
    std::chrono::nanoseconds slowest{};  ///< of the slowest request
    std::uint8_t slowestType = 0;        ///< message type number of the slowest request
};

/// Message counters since start. Written by the dispatcher's thread.
struct Statistics
{
    /// Requests taken, by message type number, retransmissions included.
    std::array<std::uint64_t, 32> requests{};
    std::uint64_t baselineRequests = 0;  ///< of `requests` those in the baseline format
    std::uint64_t extendedRequests = 0;  ///< of `requests` those in the extended format
    /// Results of what was run, by result number, whether a reply was due or not.
    std::array<std::uint64_t, 16> results{};
    /// The same by message type, then result number.
    std::array<std::array<std::uint64_t, 16>, 32> resultsByType{};
    /// Of `requests` those in the extended format.
    std::array<std::uint64_t, 32> extendedByType{};
    /// By class; classes that the host doesn't have are left out.
    std::map<std::uint16_t, HandlerTime> handlers;
    std::array<std::uint64_t, kDropReasons> drops{};  ///< by DropReason
    std::uint64_t replies = 0;                        ///< sent, retransmissions included
    /// Requests answered from the last reply.
    std::uint64_t retransmissions = 0;
    /// Requests that ended in an exception.
    std::uint64_t exceptions = 0;

    /// Frames dropped for one reason.
    std::uint64_t dropped(DropReason reason) const { return drops[static_cast<std::size_t>(reason)]; }
};

}  // namespace omci

#endif
