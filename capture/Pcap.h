#ifndef CAPTURE_PCAP_H
#define CAPTURE_PCAP_H

#include <pcap/pcap.h>

namespace omci {

/// The functions of libpcap that captures need. The library is loaded at the first use of `pcap`, since it brings eight
/// others into memory: a megabyte that a program without a capture does not carry.
struct Pcap
{
    decltype(&pcap_close) close;
    decltype(&pcap_datalink) datalink;
    decltype(&pcap_datalink_val_to_name) datalinkName;
    decltype(&pcap_dump) dump;
    decltype(&pcap_dump_close) dumpClose;
    decltype(&pcap_dump_file) dumpFile;
    decltype(&pcap_dump_open) dumpOpen;
    decltype(&pcap_fopen_offline) openStream;
    decltype(&pcap_geterr) error;
    decltype(&pcap_next_ex) next;
    decltype(&pcap_open_dead) openDead;
};

/// Loads libpcap at the first call and keeps it; std::runtime_error when it is not installed.
const Pcap& pcap();

struct PcapClose
{
    void operator()(pcap_t* capture) const { pcap().close(capture); }
    void operator()(pcap_dumper_t* dumper) const { pcap().dumpClose(dumper); }
};

}  // namespace omci

#endif
