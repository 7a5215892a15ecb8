#include "Pcap.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace omci {

namespace {

/// Debian's name of it, and everybody else's.
void* openLibrary()
{
    void* library = dlopen("libpcap.so.0.8", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        library = dlopen("libpcap.so.1", RTLD_NOW | RTLD_LOCAL);
    }
    if (library == nullptr) {
        throw std::runtime_error("captures need libpcap, which is not installed: " + std::string(dlerror()));
    }
    return library;
}

template <typename Function>
void find(Function& function, void* library, const char* name)
{
    function = reinterpret_cast<Function>(dlsym(library, name));
    if (function == nullptr) {
        throw std::runtime_error("captures need a newer libpcap: " + std::string(dlerror()));
    }
}

Pcap load()
{
    void* library = openLibrary();
    Pcap loaded{};
    find(loaded.close, library, "pcap_close");
    find(loaded.datalink, library, "pcap_datalink");
    find(loaded.datalinkName, library, "pcap_datalink_val_to_name");
    find(loaded.dump, library, "pcap_dump");
    find(loaded.dumpClose, library, "pcap_dump_close");
    find(loaded.dumpFile, library, "pcap_dump_file");
    find(loaded.dumpOpen, library, "pcap_dump_open");
    find(loaded.openStream, library, "pcap_fopen_offline");
    find(loaded.error, library, "pcap_geterr");
    find(loaded.next, library, "pcap_next_ex");
    find(loaded.openDead, library, "pcap_open_dead");
    return loaded;
}

}  // namespace

const Pcap& pcap()
{
    static const Pcap loaded = load();
    return loaded;
}

}  // namespace omci
