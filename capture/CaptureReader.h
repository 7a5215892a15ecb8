#ifndef CAPTURE_CAPTURE_READER_H
#define CAPTURE_CAPTURE_READER_H

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Pcap.h"
#include "host/Mic.h"

namespace omci {

/// One OMCI frame of a capture.
struct CapturedFrame
{
    std::chrono::microseconds time{};  ///< Since 1970, UTC.
    Direction direction = Direction::Downstream;
    std::vector<std::uint8_t> octets;  ///< Without what the link layer padded.
};

/// OMCI frames of a pcap or pcapng file, whoever wrote it. The direction is the frame's own: responses and
/// notifications go upstream; only of what is no OMCI frame the addresses are asked.
class CaptureReader
{
public:
    /// From an open stream, which the reader closes. `name` is for complaints: std::runtime_error, which begins with
    /// it, when the stream can't be read, is no capture or has another link type than Ethernet.
    CaptureReader(std::FILE* stream, const std::string& name);

    /// Nothing at the end. std::runtime_error when the file is damaged.
    std::optional<CapturedFrame> next();

    /// Packets so far that carry no OMCI.
    std::size_t skipped() const { return m_Skipped; }
    /// Whether the file ended inside a packet, as one does that is still being written.
    bool endsEarly() const { return m_EndsEarly; }

private:
    void checkLink() const;

    std::string m_Name;
    std::unique_ptr<pcap_t, PcapClose> m_Capture;
    std::size_t m_Skipped = 0;
    bool m_EndsEarly = false;
};

}  // namespace omci

#endif
