// The layer-2 data path: UNIs, bridge ports, mappers, GEM ports, T-CONTs.
#include "JsonValues.h"
#include "MapperServiceProfileAccess.h"
#include "MibAccess.h"
#include "hardware/EntityArguments.h"
#include "hardware/SimulatedHardware.h"
#include "hardware/VlanReads.h"

namespace {
/// Where a class keeps its two states.
struct StateAttributes
{
    unsigned short classId;
    unsigned short administrative;
    unsigned short operational;
};
constexpr StateAttributes kUniStates{kClassPptpEthernetUni, 0x800, 0x400};
constexpr StateAttributes kVeipStates{kClassVeip, 0x8000, 0x4000};
constexpr StateAttributes kVideoUniStates{kClassPptpVideoUni, 0x8000, 0x4000};
constexpr StateAttributes kVideoAniStates{kClassPptpVideoAni, 0x8000, 0x4000};

/// Reads what is stored, not through the getters: those of a UNI ask the hardware again.
void readStates(HardwareCall& written, const StateAttributes& attributes, unsigned short instance)
{
    const auto administrative = mib::storedNumber(attributes.classId, instance, attributes.administrative);
    const auto operational = mib::storedNumber(attributes.classId, instance, attributes.operational);
    if (administrative && operational) {
        written.setRead("administrative", *administrative);
        written.setRead("operational", *operational);
    }
}

/// `kind` of findMacBridgePortByTp.
constexpr unsigned char kFindByUni = 1;
constexpr unsigned char kFindByIpHost = 4;
constexpr unsigned char kFindByVlanFilter = 5;

OmciMeMacBridgePortConfigurationDataIf* findPort(unsigned char tpType, unsigned short tpPointer)
{
    using Port = OmciMeMacBridgePortConfigurationDataIf;
    for (Port* port = Port::getFirstManagedEntityInstance(); port != nullptr;
         port = Port::getNextManagedEntityInstance(port->getManagedEntityInstance())) {
        if (port->getTpType(OMCI_ACTION_GET) == tpType && port->getTpPointer(OMCI_ACTION_GET) == tpPointer) {
            return port;
        }
    }
    return nullptr;
}

/// The interworking TPs that the mapper's p-bits had before.
Json oldPointersOf(const OmciMeMapperServiceProfile802_1PIf& mapper)
{
    constexpr unsigned short pBits = 8;
    Json pointers = Json::array();
    for (unsigned short pBit = 0; pBit < pBits; ++pBit) {
        pointers.push_back(nrvk::getOldInterworkingTpForPbit(mapper, pBit));
    }
    return pointers;
}

/// `layer2Type` of resolveDot1agLayer2Entity, G.988 9.3.22.
constexpr unsigned char kLayer2BridgePort = 0;
constexpr unsigned char kLayer2Mapper = 1;
constexpr unsigned char kNoLogicalPort = 255;
}  // namespace

int SimulatedHardware::findMacBridgePortByTp(unsigned char kind, unsigned short instance,
                                             OmciMeMacBridgePortConfigurationDataIf** port)
{
    HardwareCall written = call("findMacBridgePortByTp", {kind, instance, nullptr});
    if (kind == kFindByUni || kind == kFindByIpHost) {
        *port = findPort(kind, instance);
    } else if (kind == kFindByVlanFilter) {
        // A VLAN tagging filter has the number of its bridge port.
        *port = OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(instance);
    }
    written.setArgument(2, entity(*port));
    return 0;
}

int SimulatedHardware::removeUniService(OmciMePptpEthernetUniIf* uni)
{
    HardwareCall written = call("removeUniService", {entity(uni)});
    readStates(written, kUniStates, uni->getManagedEntityInstance());
    m_Services.removeUni(*uni);
    serveServices(written);
    return 0;
}

int SimulatedHardware::provisionUniService(OmciMePptpEthernetUniIf* uni)
{
    HardwareCall written = call("provisionUniService", {entity(uni)});
    readStates(written, kUniStates, uni->getManagedEntityInstance());
    readVlanRules(written, *uni);
    m_Services.provisionUni(*uni);
    serveServices(written);
    return 0;
}

int SimulatedHardware::removeGemInterworkingTp(OmciMeGemInterworkingTpIf* interworkingTp)
{
    const HardwareCall written = call("removeGemInterworkingTp", {entity(interworkingTp)});
    m_Services.removeGem(interworkingTp->getManagedEntityInstance());
    serveServices(written);
    return 0;
}

int SimulatedHardware::removeMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf* interworkingTp)
{
    const HardwareCall written = call("removeMulticastGemInterworkingTp", {entity(interworkingTp)});
    m_Services.removeMulticastGem(interworkingTp->getManagedEntityInstance());
    serveServices(written);
    return 0;
}

int SimulatedHardware::removeTCont(OmciMeTContIf* tCont)
{
    HardwareCall written = call("removeTCont", {entity(tCont)});
    written.setRead("alloc_id", tCont->getAllocId(OMCI_ACTION_GET));
    m_Services.removeTCont(tCont->getManagedEntityInstance());
    serveServices(written);
    return 0;
}

int SimulatedHardware::removeBridgePortService(unsigned short instance)
{
    const HardwareCall written = call("removeBridgePortService", {instance});
    m_Services.removePort(instance);
    serveServices(written);
    return 0;
}

int SimulatedHardware::removeMapperInterworkingTps(OmciMeMapperServiceProfile802_1PIf* mapper,
                                                   unsigned short defaultTpPointer)
{
    HardwareCall written = call("removeMapperInterworkingTps", {entity(mapper), defaultTpPointer});
    written.setRead("old", oldPointersOf(*mapper));
    m_Services.changeMapper(*mapper);
    serveServices(written);
    return 0;
}

int SimulatedHardware::removeVeip(OmciMeVirtualEthernetInterfacePointIf* veip)
{
    HardwareCall written = call("removeVeip", {entity(veip)});
    readStates(written, kVeipStates, veip->getManagedEntityInstance());
    m_Services.removeVeip(veip->getManagedEntityInstance());
    serveServices(written);
    return 0;
}

int SimulatedHardware::provisionGemInterworkingTp(OmciMeGemInterworkingTpIf* interworkingTp)
{
    const HardwareCall written = call("provisionGemInterworkingTp", {entity(interworkingTp)});
    m_Services.provisionGem(*interworkingTp);
    serveServices(written);
    return 0;
}

int SimulatedHardware::provisionMulticastGemInterworkingTp(OmciMeMulticastGemInterworkingTpIf* interworkingTp)
{
    const HardwareCall written = call("provisionMulticastGemInterworkingTp", {entity(interworkingTp)});
    m_Services.provisionMulticastGem(*interworkingTp);
    serveServices(written);
    return 0;
}

int SimulatedHardware::provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf* port)
{
    HardwareCall written = call("provisionBridgePort", {entity(port)});
    readVlanRules(written, *port);
    m_Services.provisionPort(*port);
    workLater(written, [this, told = m_Services.told(), host = IpHosts::read(*port)] {
        m_Services.serve(told);
        if (host) {
            m_IpHosts.bringUp(*host, settings().dhcpServers, m_Core);
        }
    });
    return 0;
}

int SimulatedHardware::provisionMapper(OmciMeMapperServiceProfile802_1PIf* mapper)
{
    HardwareCall written = call("provisionMapper", {entity(mapper)});
    written.setRead("old", oldPointersOf(*mapper));
    m_Services.changeMapper(*mapper);
    serveServices(written);
    return 0;
}

int SimulatedHardware::provisionVeip(OmciMeVirtualEthernetInterfacePointIf* veip)
{
    HardwareCall written = call("provisionVeip", {entity(veip)});
    readStates(written, kVeipStates, veip->getManagedEntityInstance());
    m_Services.provisionVeip(*veip);
    serveServices(written);
    return 0;
}

unsigned int SimulatedHardware::provisionEvcAndEvcMap(const std::string& evcName, unsigned short evcVlan,
                                                      const std::string& evcMapName, unsigned short matchVlan,
                                                      unsigned char priority, bool noTagRemoved, bool request)
{
    const HardwareCall written =
        call("provisionEvcAndEvcMap", {evcName, evcVlan, evcMapName, matchVlan, priority, noTagRemoved, request});
    workLater(written);
    return 0;
}

int SimulatedHardware::setUniAutodetection(unsigned short instance, unsigned char value)
{
    HardwareCall written = call("setUniAutodetection", {instance, value});
    readStates(written, kUniStates, instance);
    workLater(written);
    return 0;
}

int SimulatedHardware::setGemPortAdminState(unsigned short instance, unsigned short portId, unsigned char state)
{
    const HardwareCall written = call("setGemPortAdminState", {instance, portId, state});
    m_Services.setGemState(instance, portId, state);
    serveServices(written);
    return 0;
}

int SimulatedHardware::setUniAdminState(unsigned short instance, unsigned char state)
{
    HardwareCall written = call("setUniAdminState", {instance, state});
    readStates(written, kUniStates, instance);
    m_Services.setUniState(instance, state);
    serveServices(written);
    return 0;
}

unsigned char SimulatedHardware::getUniOperationalState(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("getUniOperationalState", {static_cast<int>(action), instance});
    return settings().uni(instance).operationalState;
}

unsigned int SimulatedHardware::getUniLinkSpeed(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("getUniLinkSpeed", {static_cast<int>(action), instance});
    return settings().uni(instance).speed;
}

unsigned char SimulatedHardware::getUniDuplex(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("getUniDuplex", {static_cast<int>(action), instance});
    return settings().uni(instance).duplex;
}

int SimulatedHardware::setVideoAdminState(unsigned short instance, unsigned char state)
{
    // Video ANIs are numbered from 0x501, video UNIs from 0x401.
    constexpr unsigned short firstVideoAni = 0x500;
    HardwareCall written = call("setVideoAdminState", {instance, state});
    readStates(written, instance >= firstVideoAni ? kVideoAniStates : kVideoUniStates, instance);
    workLater(written);
    return 0;
}

unsigned char SimulatedHardware::resolveDot1agLayer2Entity(unsigned short layer2EntityPointer, unsigned char layer2Type,
                                                           unsigned short* bridgeServiceProfile)
{
    using Port = OmciMeMacBridgePortConfigurationDataIf;
    HardwareCall written = call("resolveDot1agLayer2Entity", {layer2EntityPointer, layer2Type, *bridgeServiceProfile});
    const Port* port = nullptr;
    bool exists = false;
    if (layer2Type == kLayer2BridgePort) {
        port = Port::getManagedEntityInstance(layer2EntityPointer);
        exists = port != nullptr;
    } else if (layer2Type == kLayer2Mapper) {
        exists = OmciMeMapperServiceProfile802_1PIf::getManagedEntityInstance(layer2EntityPointer) != nullptr;
        port = findPort(services::TP_TYPE_MAPPER, layer2EntityPointer);
    }
    if (port != nullptr) {
        *bridgeServiceProfile = port->getBridgeIdPointer(OMCI_ACTION_GET);
    }
    written.setArgument(2, *bridgeServiceProfile);
    return exists ? 0 : kNoLogicalPort;
}
