#include "hardware/DhcpSettings.h"

#include <arpa/inet.h>

#include "JsonValues.h"

Ipv4Address parseIpv4(const Json& json, const std::string& what)
{
    std::string text;
    values::from(json, text, what);
    Ipv4Address address{};
    if (inet_pton(AF_INET, text.c_str(), address.data()) != 1) {
        throw BadRequest(what + ": \"" + text + "\" is not an IPv4 address like 192.0.2.10");
    }
    return address;
}

std::string toString(const Ipv4Address& address)
{
    std::array<char, INET_ADDRSTRLEN> text{};
    inet_ntop(AF_INET, address.data(), text.data(), text.size());
    return text.data();
}

DhcpSettings DhcpSettings::forHost(unsigned short instance)
{
    constexpr unsigned char firstHost = 10;
    constexpr unsigned char hosts = 200;
    const auto host = static_cast<unsigned char>(firstHost + instance % hosts);
    return {IpAddressing{{192, 0, 2, host}, {255, 255, 255, 0}, {192, 0, 2, 1}}};
}

void DhcpSettings::apply(const Json& json, const std::string& what)
{
    if (json == false) {
        lease.reset();
        return;
    }
    if (!json.is_object()) {
        throw BadRequest(what + " is neither an object of address, mask and gateway nor false");
    }
    IpAddressing given = lease.value_or(IpAddressing());
    for (const auto& [key, value] : json.items()) {
        if (key == "address") {
            given.address = parseIpv4(value, what + ".address");
        } else if (key == "mask") {
            given.mask = parseIpv4(value, what + ".mask");
        } else if (key == "gateway") {
            given.gateway = parseIpv4(value, what + ".gateway");
        } else {
            throw BadRequest(what + " has no field \"" + key + "\"; there are address, mask and gateway");
        }
    }
    if (!given.isComplete()) {
        throw BadRequest(what + " needs an address, a mask and a gateway other than 0.0.0.0");
    }
    lease = given;
}
