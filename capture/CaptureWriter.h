#ifndef CAPTURE_CAPTURE_WRITER_H
#define CAPTURE_CAPTURE_WRITER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Pcap.h"
#include "host/Mic.h"

namespace omci {

/// A capture file of OMCI frames that can be read while it grows: link type Ethernet, ethertype 0x88B5, the direction
/// in the addresses, the time of day of `add`.
class CaptureWriter
{
public:
    /// Nothing is captured before open.
    CaptureWriter() = default;

    /// std::runtime_error when the file cannot be written.
    void open(const std::string& path);
    void add(Direction direction, const std::uint8_t* frame, std::size_t length);

private:
    std::unique_ptr<pcap_t, PcapClose> m_Capture;
    std::unique_ptr<pcap_dumper_t, PcapClose> m_Dumper;
    std::vector<std::uint8_t> m_Packet;
};

}  // namespace omci

#endif
