#include "hardware/IpHosts.h"

#include <algorithm>

#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"

namespace {
constexpr unsigned short kClassIpHost = 134;
constexpr unsigned short kCurrentAddress = 0x80;
constexpr unsigned short kCurrentMask = 0x40;
constexpr unsigned short kCurrentGateway = 0x20;

/// G.988 9.3.4, TP type of a bridge port.
constexpr unsigned char kTpTypeIpHost = 4;

/// G.988 9.4.1, IP options.
constexpr unsigned char kOptionDhcp = 0x01;
constexpr unsigned char kOptionIpStack = 0x08;

Ipv4Address addressOf(const unsigned char* octets)
{
    Ipv4Address address{};
    if (octets != nullptr) {
        std::copy(octets, octets + address.size(), address.begin());
    }
    return address;
}

IpAddressing configuredFor(const OmciMeIpHostConfigDataIf& host)
{
    return {addressOf(host.getIpAddress(OMCI_ACTION_GET)), addressOf(host.getMask(OMCI_ACTION_GET)),
            addressOf(host.getGateway(OMCI_ACTION_GET))};
}

IpAddressing leaseOf(unsigned short instance, const IpHosts::Servers& servers)
{
    const auto server = servers.find(instance);
    const DhcpSettings settings = server == servers.end() ? DhcpSettings::forHost(instance) : server->second;
    return settings.lease.value_or(IpAddressing());
}

/// The core's entry is for the first host; the others are reported through the registrar's.
void reportThroughRegistrar(unsigned short instance, unsigned short attributeMask, const Ipv4Address& address)
{
    OmciManagedEntityRegistrar::getInstance()->updateManagedEntity(kClassIpHost, instance, attributeMask,
                                                                   std::string(address.begin(), address.end()));
}

/// An empty text leaves the attribute as it is.
std::string textIfChanged(const Ipv4Address& now, const Ipv4Address& before)
{
    return now == before ? std::string() : toString(now);
}
}  // namespace

const char* IpHosts::nameOf(Mode mode)
{
    switch (mode) {
    case Mode::Static:
        return "static";
    case Mode::Dhcp:
        return "dhcp";
    default:
        return "off";
    }
}

void IpHosts::work(unsigned short instance, Host& host, const IpAddressing& addressing, OmciManagedEntitiesCore* core)
{
    if (core == nullptr || addressing == host.reported) {
        return;
    }
    const IpAddressing before = host.reported;
    host.reported = addressing;
    if (instance == OmciManagedEntitiesCore::instanceIpHostConfigData(0)) {
        core->updateIpHostConfigDataMEs_CurrentIpAddress(textIfChanged(addressing.address, before.address),
                                                         textIfChanged(addressing.mask, before.mask),
                                                         textIfChanged(addressing.gateway, before.gateway));
        return;
    }
    const std::pair<unsigned short, Ipv4Address IpAddressing::*> parts[] = {{kCurrentAddress, &IpAddressing::address},
                                                                            {kCurrentMask, &IpAddressing::mask},
                                                                            {kCurrentGateway, &IpAddressing::gateway}};
    for (const auto& [attributeMask, part] : parts) {
        if (addressing.*part != before.*part) {
            reportThroughRegistrar(instance, attributeMask, addressing.*part);
        }
    }
}

std::optional<IpHosts::Order> IpHosts::read(const OmciMeMacBridgePortConfigurationDataIf& port)
{
    const unsigned short instance = port.getTpPointer(OMCI_ACTION_GET);
    const auto* entity = port.getTpType(OMCI_ACTION_GET) == kTpTypeIpHost
                             ? OmciMeIpHostConfigDataIf::getManagedEntityInstance(instance)
                             : nullptr;
    if (entity == nullptr) {
        return std::nullopt;
    }
    const unsigned char options = entity->getIpOptions(OMCI_ACTION_GET);
    Order order{instance, port.getManagedEntityInstance(), Mode::Off, configuredFor(*entity)};
    if ((options & kOptionIpStack) != 0 && (options & kOptionDhcp) != 0) {
        order.mode = Mode::Dhcp;
    } else if ((options & kOptionIpStack) != 0 && order.configured.isComplete()) {
        order.mode = Mode::Static;
    }
    return order;
}

void IpHosts::bringUp(const Order& order, const Servers& servers, OmciManagedEntitiesCore* core)
{
    if (OmciMeIpHostConfigDataIf::getManagedEntityInstance(order.instance) == nullptr) {
        return;
    }
    Host& host = m_Hosts[order.instance];
    host.bridgePort = order.bridgePort;
    host.mode = order.mode;
    const IpAddressing addressing = order.mode == Mode::Dhcp     ? leaseOf(order.instance, servers)
                                    : order.mode == Mode::Static ? order.configured
                                                                 : IpAddressing();
    work(order.instance, host, addressing, core);
}

void IpHosts::renew(const Servers& servers, OmciManagedEntitiesCore* core)
{
    for (auto& [instance, host] : m_Hosts) {
        if (host.mode == Mode::Dhcp && OmciMeIpHostConfigDataIf::getManagedEntityInstance(instance) != nullptr) {
            work(instance, host, leaseOf(instance, servers), core);
        }
    }
}

Json IpHosts::describe() const
{
    Json all = Json::array();
    for (const auto* entity = OmciMeIpHostConfigDataIf::getFirstManagedEntityInstance(); entity != nullptr;
         entity = OmciMeIpHostConfigDataIf::getNextManagedEntityInstance(entity->getManagedEntityInstance())) {
        const unsigned short instance = entity->getManagedEntityInstance();
        const auto found = m_Hosts.find(instance);
        const Host host = found == m_Hosts.end() ? Host() : found->second;
        all.push_back({{"instance", instance},
                       {"mode", nameOf(host.mode)},
                       {"bridge_port", found == m_Hosts.end() ? Json(nullptr) : Json(host.bridgePort)},
                       {"address", toString(host.reported.address)},
                       {"mask", toString(host.reported.mask)},
                       {"gateway", toString(host.reported.gateway)}});
    }
    return all;
}
