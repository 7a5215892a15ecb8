#ifndef OLT_SESSION_SESSION_H
#define OLT_SESSION_SESSION_H

#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "host/FrameCodec.h"
#include "host/MessageLayout.h"
#include "host/Mic.h"
#include "session/Channel.h"

namespace olt {

using Bytes = std::vector<std::uint8_t>;

/// A received frame and the octets that it points into.
class Frame
{
public:
    Frame(Bytes bytes, const omci::FrameView& view) : m_Bytes(std::move(bytes)), m_View(view) {}
    Frame(Frame&&) noexcept = default;
    Frame& operator=(Frame&&) noexcept = default;
    // A copy's view would point into the original.
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    [[nodiscard]] const omci::FrameView& view() const { return m_View; }
    [[nodiscard]] const omci::FrameHeader& header() const { return m_View.header; }
    [[nodiscard]] const Bytes& bytes() const { return m_Bytes; }

private:
    Bytes m_Bytes;
    omci::FrameView m_View;
};

struct Request
{
    omci::MessageType type = omci::MessageType::Get;
    std::uint16_t entityClass = 0;
    std::uint16_t entityInstance = 0;
    Bytes contents;  ///< Without padding.
};

struct SessionOptions
{
    omci::Format format = omci::Format::Baseline;
    std::chrono::milliseconds timeout{1000};  ///< For one attempt.
    unsigned retries = 3;                     ///< Further attempts after the first.
};

struct SessionStatistics
{
    std::uint64_t framesSent = 0;
    std::uint64_t framesReceived = 0;  ///< Valid ones.
    std::uint64_t octetsReceived = 0;  ///< Of the valid frames.
    std::uint64_t retransmissions = 0;
    std::uint64_t undecodable = 0;
    std::uint64_t wrongMic = 0;
    std::uint64_t stale = 0;  ///< Answers to nothing that is open: late or doubled ones.
};

/// One conversation with an ONU: requests one at a time, each with a transaction id of its own that its retransmissions
/// share, so that the ONU can tell a repetition from a new command. What the ONU sends unasked is kept in order.
class Session
{
public:
    using Tap = std::function<void(omci::Direction, const std::uint8_t*, std::size_t)>;

    Session(std::unique_ptr<Channel> channel, omci::Mic mic, const SessionOptions& options);

    [[nodiscard]] omci::Format format() const { return m_Options.format; }
    /// For the requests from now on; one session may mix both.
    void setFormat(omci::Format format) { m_Options.format = format; }
    [[nodiscard]] const SessionStatistics& statistics() const { return m_Statistics; }
    /// Transaction id of the last request.
    [[nodiscard]] std::uint16_t lastTransaction() const { return m_Transaction; }
    /// Called with every datagram that is sent or received, whole and unchecked.
    void addTap(Tap tap) { m_Taps.push_back(std::move(tap)); }

    /// The ONU's answer: same transaction, type, class and instance. Sent again after each time-out. Throws Unreachable
    /// when all attempts are used up, UsageError when the contents exceed the format, Interrupted on Ctrl-C.
    [[nodiscard]] Frame request(const Request& request);

    /// The next alarm, attribute value change or test result; none when `deadline` passes first.
    [[nodiscard]] std::optional<Frame> notification(Clock::time_point deadline);

    /// Octets as they are, no MIC, no retransmission; the next valid frame that isn't
    /// sent unasked, none after the time-out.
    [[nodiscard]] std::optional<Frame> exchangeRaw(const Bytes& octets);

    /// Octets as they are, and no wait for anything.
    void send(const Bytes& octets) { transmit(octets); }

    /// Waits, and keeps what the ONU sends meanwhile. Throws Interrupted on Ctrl-C.
    void pause(Clock::time_point deadline);

    /// Puts another road in place; the one before comes back.
    [[nodiscard]] std::unique_ptr<Channel> exchangeChannel(std::unique_ptr<Channel> channel);

    /// A request without expecting an answer; its acknowledge bit is clear. Yields its transaction id.
    std::uint16_t sendUnacknowledged(const Request& request);

private:
    [[nodiscard]] Bytes build(const Request& request, bool acknowledge);
    void transmit(const Bytes& frame);
    [[nodiscard]] std::optional<Frame> receiveValid(Clock::time_point deadline);
    [[nodiscard]] std::optional<Frame> awaitAnswer(const omci::FrameHeader& request, Clock::time_point deadline);
    void sortIn(Frame frame);
    [[nodiscard]] std::string whyNoAnswer(const Request& request) const;

    std::unique_ptr<Channel> m_Channel;
    omci::Mic m_Mic;
    SessionOptions m_Options;
    SessionStatistics m_Statistics;
    std::uint16_t m_Transaction;
    std::deque<Frame> m_Notifications;
    std::vector<Tap> m_Taps;
};

}  // namespace olt

#endif
