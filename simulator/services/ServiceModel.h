#ifndef SIMULATOR_SERVICES_SERVICE_MODEL_H
#define SIMULATOR_SERVICES_SERVICE_MODEL_H

#include <map>
#include <string>

#include "Json.h"
#include "OmciMeGemInterworkingTpIf.h"
#include "OmciMeMulticastGemInterworkingTpIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "OmciMeVirtualEthernetInterfacePointIf.h"
#include "services/ServiceRecords.h"
#include "services/ServiceView.h"

/// What the simulated data path serves: for each Ethernet UNI, VEIP and bridge port the VLAN rules, and the GEM ports
/// with their p-bits, T-CONTs and directions.
///
/// It learns as a board does: what it is told of, it reads then, from the entity handed over along the pointers to GEM
/// ports and T-CONTs. A later Set changes nothing here until the library tells of it. Pointers are followed once, each
/// to another class, so that no loop of them can catch it; one that leads nowhere is reported as missing. What it was
/// told it serves once `serve` says so, for a board may take its time.
class ServiceModel
{
public:
    /// @name What the library tells
    /// @{
    /// Everything is forgotten.
    void clear();
    void provisionUni(const OmciMePptpEthernetUniIf& uni);
    void removeUni(const OmciMePptpEthernetUniIf& uni);
    void setUniState(unsigned short instance, unsigned char administrativeState);
    void provisionVeip(const OmciMeVirtualEthernetInterfacePointIf& veip);
    void removeVeip(unsigned short instance);
    void provisionPort(const OmciMeMacBridgePortConfigurationDataIf& port);
    /// A bridge port, or else a mapper: both are removed by their number alone.
    void removePort(unsigned short instance);
    /// Pointers came, went or moved.
    void changeMapper(const OmciMeMapperServiceProfile802_1PIf& mapper);
    void provisionGem(const OmciMeGemInterworkingTpIf& interworkingTp);
    void removeGem(unsigned short instance);
    void provisionMulticastGem(const OmciMeMulticastGemInterworkingTpIf& interworkingTp);
    void removeMulticastGem(unsigned short instance);
    /// A unicast GEM interworking TP or, where there is none of the number with that port id, a multicast one.
    void setGemState(unsigned short instance, unsigned short portId, unsigned char administrativeState);
    void removeTCont(unsigned short instance);
    /// @}

    /// Everything that it has been told up to now.
    const services::Records& told() const { return m_Told; }
    /// From now on these are served.
    void serve(services::Records records);

    /// What is served: {"ethernet_unis":[...],"veips":[...],"bridge_ports":[...]}, each in order of instance.
    Json toJson() const;

private:
    void readMapperAgain(unsigned short instance);
    void readGemAgain(unsigned short instance);
    void readMulticastGemAgain(unsigned short instance);
    /// Says what has changed since the last time.
    void logChanges();

    services::Records m_Told;
    services::Records m_Served;
    /// The last line about each port.
    std::map<std::string, services::PortLine> m_Logged;
};

#endif
