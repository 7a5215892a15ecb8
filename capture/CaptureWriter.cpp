#include "CaptureWriter.h"

#include <sys/time.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "CaptureFormat.h"
#include "WholeRecords.h"

namespace omci {

namespace {
constexpr int kSnapshotLength = 65535;
}  // namespace

void CaptureWriter::open(const std::string& path)
{
    m_Capture.reset(pcap().openDead(DLT_EN10MB, kSnapshotLength));
    m_Dumper.reset(pcap().dumpOpen(m_Capture.get(), path.c_str()));
    if (!m_Dumper) {
        throw std::runtime_error("cannot write the capture: " + std::string(pcap().error(m_Capture.get())));
    }
    if (!flushWhole(pcap().dumpFile(m_Dumper.get()), 0)) {
        throw std::runtime_error("cannot write the capture: " + path + ": " + std::strerror(errno));
    }
}

void CaptureWriter::add(Direction direction, const std::uint8_t* frame, std::size_t length)
{
    if (!m_Dumper) {
        return;
    }
    const bool isDownstream = direction == Direction::Downstream;
    const auto& destination = isDownstream ? kOnuAddress : kOltAddress;
    const auto& source = isDownstream ? kOltAddress : kOnuAddress;
    m_Packet.assign(destination.begin(), destination.end());
    m_Packet.insert(m_Packet.end(), source.begin(), source.end());
    m_Packet.push_back(kOmciEthertype >> 8);
    m_Packet.push_back(kOmciEthertype & 0xFF);
    m_Packet.insert(m_Packet.end(), frame, frame + length);
    FILE* const file = pcap().dumpFile(m_Dumper.get());
    const off_t whole = ftello(file);
    pcap_pkthdr header{};
    gettimeofday(&header.ts, nullptr);
    header.caplen = static_cast<bpf_u_int32>(m_Packet.size());
    header.len = header.caplen;
    pcap().dump(reinterpret_cast<u_char*>(m_Dumper.get()), &header, m_Packet.data());
    if (!flushWhole(file, whole)) {
        const std::string reason = std::strerror(errno);
        m_Dumper.reset();
        throw std::runtime_error("cannot write the capture: " + reason + "; it ends here");
    }
}

}  // namespace omci
