#ifndef SIMULATOR_HARDWARE_DHCP_SETTINGS_H
#define SIMULATOR_HARDWARE_DHCP_SETTINGS_H

#include <array>
#include <optional>
#include <string>

#include "Json.h"

/// An IPv4 address, mask or gateway as it goes over the wire.
using Ipv4Address = std::array<unsigned char, 4>;

Ipv4Address parseIpv4(const Json& json, const std::string& what);
std::string toString(const Ipv4Address& address);

/// What an IP host works with.
struct IpAddressing
{
    Ipv4Address address{};
    Ipv4Address mask{};
    Ipv4Address gateway{};

    bool isComplete() const { return address != Ipv4Address{} && mask != Ipv4Address{} && gateway != Ipv4Address{}; }
    bool operator==(const IpAddressing& other) const
    {
        return address == other.address && mask == other.mask && gateway == other.gateway;
    }
    bool operator!=(const IpAddressing& other) const { return !(*this == other); }
};

/// What the network's DHCP server does for one IP host.
struct DhcpSettings
{
    /// Nothing: no server answers.
    std::optional<IpAddressing> lease;

    /// What a host gets that nobody said anything about: an address of 192.0.2.0/24 after its instance.
    static DhcpSettings forHost(unsigned short instance);

    /// Takes over {"address":"10.0.0.9","mask":"255.255.255.0","gateway":"10.0.0.1"}, or false: no answer. BadRequest,
    /// naming `what`, when that is neither.
    void apply(const Json& json, const std::string& what);
};

#endif
