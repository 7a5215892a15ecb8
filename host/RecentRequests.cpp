#include "RecentRequests.h"

#include <algorithm>
#include <cstring>

namespace omci {

namespace {

bool onlyReads(MessageType type)
{
    switch (type) {
    case MessageType::Get:
    case MessageType::GetCurrentData:
    case MessageType::GetAllAlarmsNext:
    case MessageType::MibUploadNext:
        return true;
    default:
        // A get next moves the reading on.
        return false;
    }
}

/// In the manner of FNV-1a, eight octets at a time; two texts that differ in only one place never have the same.
std::uint64_t digestOf(const std::uint8_t* bytes, std::size_t length)
{
    std::uint64_t digest = 0xCBF29CE484222325 ^ length;
    for (std::size_t at = 0; at < length; at += sizeof digest) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + at, std::min(sizeof word, length - at));
        digest = (digest ^ word) * 0x100000001B3;
    }
    return digest;
}

/// Where a peer's transactions begin, so that two peers with the same ids seldom meet.
std::uint64_t firstPlace(std::uint64_t peer)
{
    return peer * 0x9E3779B97F4A7C15 >> 40;
}

}  // namespace

RecentRequests::Reply RecentRequests::replyOf(const Entry& entry) const
{
    if (entry.replyNumber == 0 || entry.replyNumber + kReplies <= m_LastReply) {
        return {};
    }
    const KeptReply& kept = m_Replies[entry.replyNumber % kReplies];
    return {kept.octets.data(), kept.length};
}

void RecentRequests::forgetPeer(std::uint64_t peer)
{
    for (Entry& entry : m_Entries) {
        entry.transactionId = entry.peer == peer ? std::uint16_t{0} : entry.transactionId;
    }
}

bool RecentRequests::isSentAgain(const Entry& entry) const
{
    return entry.window != 0 && entry.window == m_RefusedWindow;
}

bool RecentRequests::isBehindItsWindow(const Sender& sender) const
{
    constexpr unsigned number = 0x7FFF;
    const unsigned behind = (unsigned{m_WindowEnd.transactionId} - sender.transactionId) & number;
    return m_WindowEnd.transactionId != 0 && m_WindowEnd.peer == sender.peer && behind != 0 && behind < kKnown;
}

void RecentRequests::noteSection(const Sender& sender)
{
    constexpr int nearby = 64;
    const int distance = static_cast<std::int16_t>((sender.transactionId - m_LastSection.transactionId) * 2) / 2;
    const bool counts = sender.peer == m_LastSection.peer && distance >= -nearby && distance <= nearby;
    m_Counted = counts ? m_Counted + 1 : 0;
    m_LastSection = sender;
}

/// Whether a section that is no copy comes too late all the same. One that ends a window is always run: should the ids
/// have misled, the OLT hears of an error and sends the window again.
bool RecentRequests::isLateSection(const Sender& sender, bool endsWindow, bool isNewId)
{
    const bool isBehind = isNewId && isBehindItsWindow(sender);
    if (isBehind && !endsWindow && m_Counted >= kCounts && m_RefusedWindow == 0) {
        return true;
    }
    m_RefusedWindow = isBehind ? m_RefusedWindow : 0;
    return false;
}

RecentRequests::Found RecentRequests::find(std::uint64_t peer, const FrameHeader& header, const std::uint8_t* bytes,
                                           std::size_t length, Clock::time_point now, Clock::duration longest)
{
    m_Asked = nullptr;
    Entry& entry = m_Entries[(header.transactionId + firstPlace(peer)) % kKnown];
    const bool isKnown =
        entry.peer == peer && entry.transactionId == header.transactionId && now - entry.time <= longest;
    if (onlyReads(header.type)) {
        if (isKnown) {
            forgetPeer(peer);
        }
        return {};
    }
    const std::uint64_t digest = digestOf(bytes, length);
    const Sender sender{peer, header.transactionId};
    const bool isSection = header.type == MessageType::DownloadSection;
    const bool isSame = isKnown && entry.digest == digest;
    if (isSame && !isSentAgain(entry)) {
        entry.time = now;
        return {true, replyOf(entry)};
    }
    if (isSection && !isSame && isLateSection(sender, header.acknowledgeRequest, !isKnown)) {
        return {true, {}};
    }
    if (isKnown && !isSame) {
        forgetPeer(peer);
    }
    if (header.type == MessageType::StartSoftwareDownload) {
        m_WindowEnd = {};
    }
    if (isSection) {
        noteSection(sender);
    }
    entry = {peer, digest, now, 0, header.transactionId, isSection ? m_Window : 0};
    m_Asked = &entry;
    return {};
}

void RecentRequests::endWindow(bool isRefused)
{
    m_RefusedWindow = isRefused ? m_Window : 0;
    m_WindowEnd = m_LastSection;
    ++m_Window;
}

void RecentRequests::remember(const std::uint8_t* reply, std::size_t length)
{
    if (m_Asked == nullptr) {
        return;
    }
    m_Asked->replyNumber = ++m_LastReply;
    m_Asked = nullptr;
    KeptReply& kept = m_Replies[m_LastReply % kReplies];
    kept.length = length;
    std::copy(reply, reply + length, kept.octets.begin());
}

void RecentRequests::forget()
{
    m_Entries = {};
    m_Asked = nullptr;
    m_RefusedWindow = 0;
    m_WindowEnd = {};
}

}  // namespace omci
