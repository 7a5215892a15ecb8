#ifndef CAPTURE_CAPTURE_WRITER_H
#define CAPTURE_CAPTURE_WRITER_H

#include <pcap/pcap.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

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
    struct Close
    {
        void operator()(pcap_t* capture) const { pcap_close(capture); }
        void operator()(pcap_dumper_t* dumper) const { pcap_dump_close(dumper); }
    };

    std::unique_ptr<pcap_t, Close> m_Capture;
    std::unique_ptr<pcap_dumper_t, Close> m_Dumper;
    std::vector<std::uint8_t> m_Packet;
};

}  // namespace omci

#endif
