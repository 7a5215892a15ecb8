#include "ChipHardware.h"

#include <cstdio>

#include "OmciManagedEntitiesCore.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"

namespace {
constexpr unsigned short kFirstUni = 0x0101;
constexpr unsigned char kUnlocked = 0;
constexpr unsigned char kEnabled = 0;
constexpr unsigned char kDisabled = 1;
/// What a real layer reads from the optical module: -18.5 dBm in steps of 0.002 dB, two's complement.
constexpr unsigned short kReceivedLevel = 0xDBDE;
}  // namespace

ChipHardware::Port* ChipHardware::portOf(unsigned short instance)
{
    const unsigned int index = instance - unsigned{kFirstUni};
    return index < m_Ports.size() ? &m_Ports[index] : nullptr;
}

int ChipHardware::setUniAdminState(unsigned short instance, unsigned char state)
{
    Port* port = portOf(instance);
    if (port == nullptr) {
        return -1;
    }
    port->unlocked = state == kUnlocked;
    std::printf("chip: port 0x%04x %s\n", instance, port->unlocked ? "on" : "off");
    return 0;
}

int ChipHardware::provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf* port)
{
    // Everything else is read through the getters: the instance is good as long as it exists.
    std::printf("chip: bridge %u, port %u of kind %u at 0x%04x\n", port->getBridgeIdPointer(OMCI_ACTION_GET),
                port->getPortNum(OMCI_ACTION_GET), port->getTpType(OMCI_ACTION_GET),
                port->getTpPointer(OMCI_ACTION_GET));
    return 0;
}

int ChipHardware::removeBridgePortService(unsigned short instance)
{
    std::printf("chip: bridge port 0x%04x is gone\n", instance);
    return 0;
}

int ChipHardware::resetDataPathConfiguration()
{
    std::printf("chip: all provisioning forgotten\n");
    return 0;
}

unsigned char ChipHardware::getUniOperationalState(EnumOmciAction, unsigned short instance)
{
    const Port* port = portOf(instance);
    return port != nullptr && port->unlocked && port->linkUp ? kEnabled : kDisabled;
}

unsigned int ChipHardware::getUniLinkSpeed(EnumOmciAction, unsigned short instance)
{
    return portOf(instance) != nullptr ? 1000 : 0;
}

int ChipHardware::refreshAniOpticalSignalLevel(unsigned short instance)
{
    return m_Core != nullptr ? m_Core->updateAniGOpticalSignalLevel(instance, kReceivedLevel) : -1;
}
