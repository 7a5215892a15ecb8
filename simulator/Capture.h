#ifndef SIMULATOR_CAPTURE_H
#define SIMULATOR_CAPTURE_H

#include <pcap/pcap.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/Mic.h"

/// A capture file of OMCI frames that can be read while it grows: link type Ethernet, ethertype 0x88B5, the direction
/// in the addresses.
class Capture
{
public:
    /// Nothing is captured before open.
    Capture() = default;

    /// std::runtime_error when the file cannot be written.
    void open(const std::string& path);
    void add(omci::Direction direction, const std::uint8_t* frame, std::size_t length);

private:
    struct CloseCapture
    {
        void operator()(pcap_t* capture) const { pcap_close(capture); }
        void operator()(pcap_dumper_t* dumper) const { pcap_dump_close(dumper); }
    };

    std::unique_ptr<pcap_t, CloseCapture> m_Capture;
    std::unique_ptr<pcap_dumper_t, CloseCapture> m_Dumper;
    std::vector<std::uint8_t> m_Packet;
};

#endif
