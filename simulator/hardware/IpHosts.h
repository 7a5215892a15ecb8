#ifndef SIMULATOR_HARDWARE_IP_HOSTS_H
#define SIMULATOR_HARDWARE_IP_HOSTS_H

#include <map>
#include <optional>

#include "hardware/DhcpSettings.h"

class OmciManagedEntitiesCore;
class OmciMeMacBridgePortConfigurationDataIf;

/// The IP stack of the simulated ONU. A host works when the OLT has enabled its stack (IP options, G.988 9.4.1, 0x08)
/// and its bridge port is provisioned: with the addresses of the OLT, or with 0x01 those of a DHCP server. What it
/// works with is reported through the library's update entries, each address when it changes. On the OMCI thread.
class IpHosts
{
public:
    using Servers = std::map<unsigned short, DhcpSettings>;
    enum class Mode
    {
        Off,
        Static,
        Dhcp
    };
    /// How a host is to work.
    struct Order
    {
        unsigned short instance;
        unsigned short bridgePort;
        Mode mode;
        IpAddressing configured;  ///< by the OLT
    };

    /// What a bridge port that has just been provisioned means for the host behind it, if it has one.
    static std::optional<Order> read(const OmciMeMacBridgePortConfigurationDataIf& port);
    /// The host works so. `core` may be null: nothing is reported then.
    void bringUp(const Order& order, const Servers& servers, OmciManagedEntitiesCore* core);
    /// Hosts under DHCP ask again.
    void renew(const Servers& servers, OmciManagedEntitiesCore* core);
    /// All hosts go down, as at a reboot.
    void clear() { m_Hosts.clear(); }

    /// Every IP host of the MIB with what it works with.
    Json describe() const;

private:
    struct Host
    {
        Mode mode = Mode::Off;
        unsigned short bridgePort = 0;
        IpAddressing reported;
    };

    static const char* nameOf(Mode mode);
    static void work(unsigned short instance, Host& host, const IpAddressing& addressing,
                     OmciManagedEntitiesCore* core);

    std::map<unsigned short, Host> m_Hosts;
};

#endif
