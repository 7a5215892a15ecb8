#include "Dispatcher.h"

#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <utility>

#include "GuardedLog.h"
#include "Notifier.h"
#include "RecentRequests.h"

namespace omci {

namespace {

/// Logs the exception in flight. The OLT still waits for the reply.
void logException(const OmciFrame& frame, const char* what)
{
    logGuarded([&](Logger& logger) {
        logger.writeToLog(0, "execute", "host/Dispatcher.cpp", __LINE__, 3, "Managed entity(%hu; %hu); %s failed(%s)",
                          frame.getManagedEntityClass(), frame.getManagedEntityInstance(),
                          messageTypeName(static_cast<MessageType>(frame.getMessageType())), what);
    });
}

DropReason reasonOf(DecodeError error)
{
    switch (error) {
    case DecodeError::UnknownDeviceId:
        return DropReason::UnknownDeviceId;
    case DecodeError::InvalidMessageType:
        return DropReason::InvalidMessageType;
    case DecodeError::Truncated:
        return DropReason::Truncated;
    case DecodeError::Oversized:
        return DropReason::Oversized;
    default:
        return DropReason::TooShort;
    }
}

bool isRequest(const FrameHeader& header)
{
    return !header.acknowledgement && !isAutonomous(header.type);
}

}  // namespace

const char* dropReasonName(DropReason reason)
{
    switch (reason) {
    case DropReason::TooShort:
        return "too short for a header";
    case DropReason::UnknownDeviceId:
        return "unknown device identifier";
    case DropReason::InvalidMessageType:
        return "reserved bit of the message type set";
    case DropReason::Truncated:
        return "contents truncated";
    case DropReason::Oversized:
        return "contents oversized";
    case DropReason::WrongMic:
        return "wrong MIC";
    case DropReason::NotARequest:
        return "not a request";
    case DropReason::ExtendedRefused:
        return "extended message refused";
    }
    return "unknown reason";
}

Dispatcher::Dispatcher(Mic mic, Notifier* notifier)
    : m_Mic(std::move(mic)), m_Notifier(notifier), m_Executor(notifier),
      m_RecentRequests(std::make_unique<RecentRequests>())
{}

Dispatcher::~Dispatcher() = default;

void Dispatcher::forgetRequests()
{
    for (LastRequest& last : m_LastRequests) {
        last.requestLength = 0;
        last.replyLength = 0;
    }
    m_RecentRequests->forget();
}

Dispatcher::Reply Dispatcher::drop(DropReason reason, const FrameHeader* header, std::size_t length)
{
    ++m_Statistics.drops[static_cast<std::size_t>(reason)];
    const FrameHeader none;
    const FrameHeader& known = header != nullptr ? *header : none;
    logGuarded([&](Logger& logger) {
        logger.writeToLog(0, "handle", "host/Dispatcher.cpp", __LINE__, 4,
                          "Frame of %u octets dropped: %s; Transaction(0x%04X); Managed entity(%hu; %hu)",
                          static_cast<unsigned>(length), dropReasonName(reason), known.transactionId, known.entityClass,
                          known.entityInstance);
    });
    return {};
}

Dispatcher::Reply Dispatcher::handle(const std::uint8_t* bytes, std::size_t length, std::uint64_t peer)
{
    const Decoded decoded = decode(bytes, length);
    const FrameHeader& header = decoded.frame.header;
    if (m_BaselineOnly && decoded.hasHeader() && header.format == Format::Extended) {
        return drop(DropReason::ExtendedRefused, &header, length);
    }
    if (!decoded) {
        return refuseMalformed(decoded, length);
    }
    if (m_Mic.mode() != Mic::Mode::None &&
        !(decoded.frame.hasMic && m_Mic.check(bytes, length, Direction::Downstream))) {
        return drop(DropReason::WrongMic, &header, length);
    }
    if (!isRequest(header)) {
        return drop(DropReason::NotARequest, &header, length);
    }
    count(header);
    if (m_Notifier != nullptr) {
        m_Notifier->setFormat(header.format);
    }
    return run(decoded.frame, bytes, peer);
}

void Dispatcher::count(const FrameHeader& header)
{
    ++m_Statistics.requests[static_cast<std::size_t>(header.type)];
    ++(header.format == Format::Baseline ? m_Statistics.baselineRequests : m_Statistics.extendedRequests);
    if (header.format == Format::Extended) {
        ++m_Statistics.extendedByType[static_cast<std::size_t>(header.type)];
    }
}

Dispatcher::Reply Dispatcher::refuseMalformed(const Decoded& decoded, std::size_t length)
{
    const FrameHeader& header = decoded.frame.header;
    // Without its whole length the integrity of the frame cannot be checked, so that only an ONU that checks none knows
    // whom to answer.
    if (!decoded.hasHeader() || m_Mic.mode() != Mic::Mode::None || !isRequest(header) || !header.acknowledgeRequest) {
        return drop(reasonOf(decoded.error), decoded.hasHeader() ? &header : nullptr, length);
    }
    count(header);
    FrameView empty;
    empty.header = header;
    m_Frame.setRequest(empty);
    m_Frame.setFrameToSendBackToOLT(static_cast<unsigned char>(Result::ParameterError), 0, 0, 0, nullptr, 0);
    LastRequest& scratch = m_LastRequests.back();
    scratch.replyLength = encodeReply(header, scratch.reply.data());
    return {scratch.reply.data(), scratch.replyLength};
}

bool Dispatcher::isCopy(const FrameHeader& header, const std::uint8_t* bytes, std::size_t significant,
                        std::uint64_t peer, Clock::time_point now, Reply& reply)
{
    LastRequest& last = m_LastRequests[header.transactionId >> 15];
    if (last.peer == peer && last.requestLength == significant &&
        std::memcmp(last.request.data(), bytes, significant) == 0 && now - last.time <= kRetransmissionTime) {
        last.time = now;
        reply = {last.reply.data(), last.replyLength};
        return true;
    }
    const auto recent = m_RecentRequests->find(peer, header, bytes, significant, now, kRetransmissionTime);
    if (recent.isCopy) {
        reply = {recent.reply.data, recent.reply.length};
        return true;
    }
    last.peer = peer;
    last.time = now;
    std::memcpy(last.request.data(), bytes, significant);
    last.requestLength = significant;
    return false;
}

Dispatcher::Reply Dispatcher::run(const FrameView& view, const std::uint8_t* bytes, std::uint64_t peer)
{
    const FrameHeader& header = view.header;
    const Clock::time_point start = Clock::now();
    // Id 0 is no identity: tools that never set one would get stale answers.
    const bool kept = header.acknowledgeRequest && header.transactionId != 0;
    LastRequest& last = m_LastRequests[kept ? header.transactionId >> 15 : m_LastRequests.size() - 1];
    // Up to the end of the contents: trailer and MIC say nothing that these octets do not.
    const std::size_t significant = static_cast<std::size_t>(view.contents + view.contentsLength - bytes);
    Reply known;
    if (kept && isCopy(header, bytes, significant, peer, start, known)) {
        ++m_Statistics.retransmissions;
        m_Statistics.replies += known.length != 0 ? 1 : 0;
        return known;
    }
    // A section within a window, which nobody answers.
    const bool isSection = header.type == MessageType::DownloadSection && header.transactionId != 0;
    if (isSection && !kept &&
        m_RecentRequests->find(peer, header, bytes, significant, start, kRetransmissionTime).isCopy) {
        ++m_Statistics.retransmissions;
        return {};
    }
    m_Frame.setRequest(view);
    executeGuarded();
    countTime(header, Clock::now() - start);
    last.replyLength = m_Frame.hasReply() ? encodeReply(header, last.reply.data()) : 0;
    if (kept) {
        m_RecentRequests->remember(last.reply.data(), last.replyLength);
        if (isSection) {
            const bool isRefused = m_Frame.getReplyResult() != static_cast<unsigned char>(Result::Success);
            m_RecentRequests->endWindow(isRefused);
            // The window may come again with the same ids.
            last.requestLength = isRefused ? 0 : last.requestLength;
        }
    }
    return header.acknowledgeRequest ? Reply{last.reply.data(), last.replyLength} : Reply{};
}

HandlerTime* Dispatcher::handlerTime(std::uint16_t entityClass)
{
    KnownHandler& known = m_KnownHandlers[entityClass % m_KnownHandlers.size()];
    if (known.time == nullptr || known.entityClass != entityClass) {
        try {
            // Entries of the map stay where they are for as long as the dispatcher lives.
            known = {entityClass, &m_Statistics.handlers[entityClass]};
        } catch (const std::bad_alloc&) {
            // The request was run; its reply is worth more than the figure.
            return nullptr;
        }
    }
    return known.time;
}

void Dispatcher::countTime(const FrameHeader& header, std::chrono::nanoseconds taken)
{
    if (m_Frame.getReplyResult() == static_cast<unsigned char>(Result::UnknownManagedEntity)) {
        return;
    }
    HandlerTime* const handler = handlerTime(header.entityClass);
    if (handler == nullptr) {
        return;
    }
    ++handler->requests;
    handler->total += taken;
    if (taken > handler->slowest) {
        handler->slowest = taken;
        handler->slowestType = static_cast<std::uint8_t>(header.type);
    }
}

void Dispatcher::executeGuarded()
{
    try {
        m_Executor.execute(m_Frame);
        return;
    } catch (const std::exception& exception) {
        logException(m_Frame, exception.what());
    } catch (...) {
        logException(m_Frame, "unknown exception");
    }
    ++m_Statistics.exceptions;
    m_Frame.setFrameToSendBackToOLT(static_cast<unsigned char>(Result::ProcessingError), 0, 0, 0, nullptr, 0);
}

std::size_t Dispatcher::encodeReply(const FrameHeader& request, std::uint8_t* out)
{
    const std::size_t result = m_Frame.getReplyResult();
    if (result < m_Statistics.results.size()) {
        ++m_Statistics.results[result];
        ++m_Statistics.resultsByType[static_cast<std::size_t>(request.type)][result];
    }
    if (!request.acknowledgeRequest) {
        return 0;
    }
    const std::size_t length =
        encode(responseTo(request), m_Frame.getReplyContent(), m_Frame.getReplyContentLength(), out);
    m_Mic.seal(out, length, Direction::Upstream);
    ++m_Statistics.replies;
    return length;
}

}  // namespace omci
