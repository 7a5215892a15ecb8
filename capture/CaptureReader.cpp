#include "CaptureReader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

#include "CaptureFormat.h"
#include "host/FrameCodec.h"

namespace omci {

namespace {

constexpr std::size_t kAddressLength = 6;
constexpr std::size_t kTypeOffset = 2 * kAddressLength;
constexpr std::size_t kVlanTagLength = 4;
constexpr std::array<std::uint16_t, 2> kVlanTypes = {0x8100, 0x88A8};

std::uint16_t word(const std::uint8_t* octets)
{
    return static_cast<std::uint16_t>(octets[0] << 8 | octets[1]);
}

/// Where the OMCI frame begins; 0 when the packet carries none.
std::size_t payloadOffset(const std::uint8_t* packet, std::size_t length)
{
    std::size_t at = kTypeOffset;
    while (at + 2 <= length && std::find(kVlanTypes.begin(), kVlanTypes.end(), word(packet + at)) != kVlanTypes.end()) {
        at += kVlanTagLength;
    }
    return at + 2 <= length && word(packet + at) == kOmciEthertype ? at + 2 : 0;
}

/// What Ethernet fills short packets up with is none of the frame.
std::size_t frameLength(const std::uint8_t* frame, std::size_t length)
{
    constexpr std::size_t extendedHeader = 10;
    if (length > kBaselineFrameLength && frame[3] == static_cast<std::uint8_t>(Format::Baseline)) {
        return kBaselineFrameLength;
    }
    if (length > extendedHeader && frame[3] == static_cast<std::uint8_t>(Format::Extended)) {
        return std::min(length, encodedLength(Format::Extended, word(frame + 8)));
    }
    return length;
}

Direction directionOf(const CapturedFrame& frame, const std::uint8_t* packet)
{
    const Decoded decoded = decode(frame.octets.data(), frame.octets.size());
    if (decoded.hasHeader()) {
        const FrameHeader& header = decoded.frame.header;
        const bool fromOnu = header.acknowledgement || isAutonomous(header.type);
        return fromOnu ? Direction::Upstream : Direction::Downstream;
    }
    const bool fromOnu = std::memcmp(packet + kAddressLength, kOnuAddress.data(), kAddressLength) == 0;
    return fromOnu ? Direction::Upstream : Direction::Downstream;
}

}  // namespace

CaptureReader::CaptureReader(std::FILE* stream, const std::string& name) : m_Name(name)
{
    std::array<char, PCAP_ERRBUF_SIZE> problem{};
    m_Capture.reset(pcap().openStream(stream, problem.data()));
    if (!m_Capture) {
        // What pcap_fopen_offline refuses it leaves open; standard input, which nobody opened, it never closes.
        if (stream != stdin) {
            std::fclose(stream);
        }
        throw std::runtime_error(name + ": " + problem.data());
    }
    checkLink();
}

void CaptureReader::checkLink() const
{
    const int link = pcap().datalink(m_Capture.get());
    if (link != DLT_EN10MB) {
        const char* const name = pcap().datalinkName(link);
        throw std::runtime_error(m_Name + ": the link type is " +
                                 (name != nullptr ? std::string(name) : std::to_string(link)) +
                                 "; OMCI is read from Ethernet packets (EN10MB) of type 0x88B5");
    }
}

std::optional<CapturedFrame> CaptureReader::next()
{
    for (;;) {
        pcap_pkthdr* header = nullptr;
        const u_char* packet = nullptr;
        const int got = pcap().next(m_Capture.get(), &header, &packet);
        if (got == PCAP_ERROR_BREAK) {
            return std::nullopt;
        }
        if (got != 1) {
            const std::string problem = pcap().error(m_Capture.get());
            if (problem.find("truncated") != std::string::npos) {
                m_EndsEarly = true;
                return std::nullopt;
            }
            throw std::runtime_error(m_Name + ": " + problem);
        }
        const std::size_t at = payloadOffset(packet, header->caplen);
        if (at == 0) {
            ++m_Skipped;
            continue;
        }
        CapturedFrame frame;
        frame.time = std::chrono::seconds(header->ts.tv_sec) + std::chrono::microseconds(header->ts.tv_usec);
        frame.octets.assign(packet + at, packet + at + frameLength(packet + at, header->caplen - at));
        frame.direction = directionOf(frame, packet);
        return frame;
    }
}

}  // namespace omci
