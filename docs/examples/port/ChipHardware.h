// The hardware layer of a switch chip with four ports: what a board's own looks like at the beginning.
#ifndef CHIP_HARDWARE_H
#define CHIP_HARDWARE_H

#include <array>

#include "host/QuietHardware.h"

class OmciManagedEntitiesCore;

class ChipHardware : public omci::QuietHardware
{
public:
    static constexpr unsigned char kPorts = 4;

    /// Where refreshes are answered. Not owned.
    void setCore(OmciManagedEntitiesCore* core) { m_Core = core; }

    // Pushed by the library. The result is ignored: a real chip may queue the work.
    int setUniAdminState(unsigned short instance, unsigned char state) override;
    int provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf* port) override;
    int removeBridgePortService(unsigned short instance) override;
    int resetDataPathConfiguration() override;

    // Asked by the library: the answer itself counts.
    unsigned char getUniOperationalState(EnumOmciAction action, unsigned short instance) override;
    unsigned int getUniLinkSpeed(EnumOmciAction action, unsigned short instance) override;

    // Asked before a stored value is read: answered through the core before the call returns.
    int refreshAniOpticalSignalLevel(unsigned short instance) override;

private:
    struct Port
    {
        bool unlocked = false;
        bool linkUp = true;
    };

    /// Ethernet UNIs are 0x0101, 0x0102 ...; null for an instance that the chip has no port for.
    Port* portOf(unsigned short instance);

    std::array<Port, kPorts> m_Ports;
    OmciManagedEntitiesCore* m_Core = nullptr;
};

#endif
