#ifndef HOST_HOST_MIB_H
#define HOST_HOST_MIB_H

#include <cstdint>

class OmciManagedEntitiesCore;
class OmciManagedEntityRegistrar;

namespace omci {

/// The part of the start-up MIB that the library leaves to its host: the ports of the board, and the adapters of the
/// classes without a start-up row. To be used once the registrar has registered the supported classes.
class HostMib
{
public:
    /// Neither is owned.
    HostMib(OmciManagedEntityRegistrar& registrar, OmciManagedEntitiesCore& core);

    /// Registers the adapters of the classes without a start-up row, so that all 115 classes answer.
    void registerRemainingClasses();

    /// Makes one instance of the ONU's own, with the start-up table's values where the table has the class: class 11
    /// (PPTP Ethernet UNI), 82 (PPTP video UNI), 90 (PPTP video ANI), 297 (port mapping package) and others of the
    /// kind. -1 when the class can have no instance of the ONU's own.
    int createInstance(std::uint16_t classId, std::uint16_t instance);
    /// The reverse; the values stay in the registrar's picture, as the library has no way to take them out.
    int deleteInstance(std::uint16_t classId, std::uint16_t instance);

    /// Makes the PPTP Ethernet UNIs (G.988 9.5.1, class 11) that the board has. Yields how many could not be made.
    unsigned createEthernetUnis(std::uint8_t count);
    /// The same with PPTP video UNIs (9.13.1, class 82).
    unsigned createVideoUnis(std::uint8_t count);
    /// The same with PPTP video ANIs (9.13.2, class 90).
    unsigned createVideoAnis(std::uint8_t count);

private:
    using InstanceFunction = unsigned short (*)(unsigned char);

    unsigned createPorts(std::uint16_t classId, InstanceFunction instance, std::uint8_t count);
    void writeStartupValues(std::uint16_t classId, std::uint16_t instance);

    OmciManagedEntityRegistrar& m_Registrar;
    OmciManagedEntitiesCore& m_Core;
};

}  // namespace omci

#endif
