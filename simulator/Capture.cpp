#include "Capture.h"

#include <sys/time.h>

#include <stdexcept>

namespace {
constexpr int kSnapshotLength = 65535;
constexpr std::array<std::uint8_t, 6> kOltAddress = {0x02, 0, 0, 0, 0, 0x01};
constexpr std::array<std::uint8_t, 6> kOnuAddress = {0x02, 0, 0, 0, 0, 0x02};
constexpr std::array<std::uint8_t, 2> kOmciEthertype = {0x88, 0xB5};
}  // namespace

void Capture::open(const std::string& path)
{
    m_Capture.reset(pcap_open_dead(DLT_EN10MB, kSnapshotLength));
    m_Dumper.reset(pcap_dump_open(m_Capture.get(), path.c_str()));
    if (!m_Dumper) {
        throw std::runtime_error("cannot write the capture: " + std::string(pcap_geterr(m_Capture.get())));
    }
    pcap_dump_flush(m_Dumper.get());
}

void Capture::add(omci::Direction direction, const std::uint8_t* frame, std::size_t length)
{
    if (!m_Dumper) {
        return;
    }
    const bool isDownstream = direction == omci::Direction::Downstream;
    const auto& destination = isDownstream ? kOnuAddress : kOltAddress;
    const auto& source = isDownstream ? kOltAddress : kOnuAddress;
    m_Packet.assign(destination.begin(), destination.end());
    m_Packet.insert(m_Packet.end(), source.begin(), source.end());
    m_Packet.insert(m_Packet.end(), kOmciEthertype.begin(), kOmciEthertype.end());
    m_Packet.insert(m_Packet.end(), frame, frame + length);
    pcap_pkthdr header{};
    gettimeofday(&header.ts, nullptr);
    header.caplen = static_cast<bpf_u_int32>(m_Packet.size());
    header.len = header.caplen;
    pcap_dump(reinterpret_cast<u_char*>(m_Dumper.get()), &header, m_Packet.data());
    pcap_dump_flush(m_Dumper.get());
}
