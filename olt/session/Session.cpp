#include "session/Session.h"

#include <random>
#include <utility>

#include "model/Errors.h"

namespace olt {

namespace {

/// The top bit of a transaction id marks high priority, which a person's commands are not.
constexpr std::uint16_t kLastTransaction = 0x7FFF;
/// A flood of notifications must not eat the memory of a long script; the oldest go first.
constexpr std::size_t kMostNotifications = 4096;

/// Two runs of the program must not begin with the same id, or the ONU would answer the second from its last reply.
std::uint16_t randomTransaction()
{
    std::random_device device;
    return static_cast<std::uint16_t>(std::uniform_int_distribution<unsigned>(1, kLastTransaction)(device));
}

std::uint16_t following(std::uint16_t transaction)
{
    return transaction >= kLastTransaction ? std::uint16_t{1} : static_cast<std::uint16_t>(transaction + 1);
}

bool isAnswer(const omci::FrameHeader& header, const omci::FrameHeader& request)
{
    return header.acknowledgement && header.transactionId == request.transactionId && header.type == request.type &&
           header.entityClass == request.entityClass && header.entityInstance == request.entityInstance;
}

std::string counted(std::uint64_t count, const char* what)
{
    return count == 0 ? "" : ", " + std::to_string(count) + " " + what;
}

}  // namespace

Session::Session(std::unique_ptr<Channel> channel, omci::Mic mic, const SessionOptions& options)
    : m_Channel(std::move(channel)), m_Mic(std::move(mic)), m_Options(options), m_Transaction(randomTransaction())
{}

Bytes Session::build(const Request& request, bool acknowledge)
{
    m_Transaction = following(m_Transaction);
    omci::FrameHeader header;
    header.transactionId = m_Transaction;
    header.type = request.type;
    header.acknowledgeRequest = acknowledge;
    header.format = m_Options.format;
    header.entityClass = request.entityClass;
    header.entityInstance = request.entityInstance;
    Bytes frame(omci::kMaximumFrameLength);
    const std::size_t length = omci::encode(header, request.contents.data(), request.contents.size(), frame.data());
    if (length == 0)
        throw UsageError(std::string(omci::messageTypeName(request.type)) + ": " +
                         std::to_string(request.contents.size()) + " octets of contents don't fit a " +
                         omci::formatName(m_Options.format) + " message" +
                         (m_Options.format == omci::Format::Baseline ? "; --extended has room for 1966" : ""));
    frame.resize(length);
    m_Mic.seal(frame.data(), frame.size(), omci::Direction::Downstream);
    return frame;
}

void Session::transmit(const Bytes& frame)
{
    for (const auto& tap : m_Taps)
        tap(omci::Direction::Downstream, frame.data(), frame.size());
    m_Channel->send(frame.data(), frame.size());
    ++m_Statistics.framesSent;
}

std::optional<Frame> Session::receiveValid(Clock::time_point deadline)
{
    // The deadline holds under a flood of rubbish too.
    for (bool first = true; first || Clock::now() < deadline; first = false) {
        auto datagram = m_Channel->receive(deadline);
        if (!datagram)
            break;
        for (const auto& tap : m_Taps)
            tap(omci::Direction::Upstream, datagram->data(), datagram->size());
        const auto decoded = omci::decode(datagram->data(), datagram->size());
        if (!decoded) {
            ++m_Statistics.undecodable;
            continue;
        }
        const bool micIsDue = m_Mic.mode() != omci::Mic::Mode::None;
        if (micIsDue &&
            !(decoded.frame.hasMic && m_Mic.check(datagram->data(), datagram->size(), omci::Direction::Upstream))) {
            ++m_Statistics.wrongMic;
            continue;
        }
        ++m_Statistics.framesReceived;
        m_Statistics.octetsReceived += datagram->size();
        return Frame(std::move(*datagram), decoded.frame);
    }
    return std::nullopt;
}

void Session::sortIn(Frame frame)
{
    const auto& header = frame.header();
    if (!omci::isAutonomous(header.type) || header.acknowledgement) {
        ++m_Statistics.stale;
        return;
    }
    if (m_Notifications.size() == kMostNotifications)
        m_Notifications.pop_front();
    m_Notifications.push_back(std::move(frame));
}

std::optional<Frame> Session::awaitAnswer(const omci::FrameHeader& request, Clock::time_point deadline)
{
    for (bool first = true; first || Clock::now() < deadline; first = false) {
        auto frame = receiveValid(deadline);
        if (!frame)
            break;
        if (isAnswer(frame->header(), request))
            return frame;
        sortIn(std::move(*frame));
    }
    return std::nullopt;
}

Frame Session::request(const Request& request)
{
    const Bytes frame = build(request, true);
    const auto header = omci::decode(frame.data(), frame.size()).frame.header;
    for (unsigned attempt = 0; attempt <= m_Options.retries; ++attempt) {
        if (attempt > 0)
            ++m_Statistics.retransmissions;
        transmit(frame);
        if (auto answer = awaitAnswer(header, Clock::now() + m_Options.timeout))
            return std::move(*answer);
    }
    throw Unreachable(whyNoAnswer(request));
}

std::string Session::whyNoAnswer(const Request& request) const
{
    const unsigned attempts = m_Options.retries + 1;
    std::string text = "no answer to " + std::string(omci::messageTypeName(request.type)) + " after " +
                       std::to_string(attempts) + (attempts == 1 ? " attempt of " : " attempts of ") +
                       std::to_string(m_Options.timeout.count()) + " ms";
    text += counted(m_Statistics.wrongMic, "frames with a wrong MIC dropped (--mic?)");
    text += counted(m_Statistics.undecodable, "undecodable datagrams dropped");
    if (const std::string trouble = m_Channel->trouble(); !trouble.empty())
        text += ": " + trouble;
    return text;
}

std::optional<Frame> Session::notification(Clock::time_point deadline)
{
    for (bool first = true; first || Clock::now() < deadline; first = false) {
        if (!m_Notifications.empty()) {
            Frame oldest = std::move(m_Notifications.front());
            m_Notifications.pop_front();
            return oldest;
        }
        auto frame = receiveValid(deadline);
        if (!frame)
            break;
        sortIn(std::move(*frame));
    }
    return std::nullopt;
}

std::optional<Frame> Session::exchangeRaw(const Bytes& octets)
{
    transmit(octets);
    const auto deadline = Clock::now() + m_Options.timeout;
    while (auto frame = receiveValid(deadline)) {
        if (frame->header().acknowledgement || !omci::isAutonomous(frame->header().type))
            return frame;
        sortIn(std::move(*frame));
    }
    return std::nullopt;
}

void Session::pause(Clock::time_point deadline)
{
    while (auto frame = receiveValid(deadline))
        sortIn(std::move(*frame));
}

std::unique_ptr<Channel> Session::exchangeChannel(std::unique_ptr<Channel> channel)
{
    return std::exchange(m_Channel, std::move(channel));
}

std::uint16_t Session::sendUnacknowledged(const Request& request)
{
    transmit(build(request, false));
    return m_Transaction;
}

}  // namespace olt
