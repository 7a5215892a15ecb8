#include "adapterExtended/PmRefresh.h"

#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace nrvk {

StatsAction statsActionOf(EnumOmciAction action)
{
    switch (action) {
    case OMCI_ACTION_GET:
        return STATS_HISTORY;
    case OMCI_ACTION_GET_CURRENT_DATA:
        return STATS_CURRENT;
    default:
        return STATS_NONE;
    }
}

void refreshEthernetPm(unsigned short classId, unsigned short instance, EnumOmciAction action)
{
    const StatsAction statsAction = statsActionOf(action);
    if (statsAction == STATS_NONE) {
        return;
    }
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        hardware->refreshEthernetFrameCounters(classId, instance, statsAction, 0, 0);
    }
}

void refreshFecPm(unsigned short instance, EnumOmciAction action)
{
    const StatsAction statsAction = statsActionOf(action);
    if (statsAction == STATS_NONE) {
        return;
    }
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        hardware->refreshFecCounters(instance, statsAction);
    }
}

int refreshGemPortPm(unsigned short classId, unsigned short instance, EnumOmciAction action)
{
    const OmciMeGemPortNetworkCtpIf* ctp = OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(instance);
    if (ctp == nullptr) {
        NRVK_LOG(3, "Gem Port Network CTP Instance (%hu) not found", instance);
        return -1;
    }
    const unsigned short portId = ctp->getPortId(OMCI_ACTION_GET);
    if (portId == ctp->getDefaultPortId()) {
        NRVK_LOG(3, "Gem Port Network CTP(%hu) port id (%hu)", instance, portId);
        return -1;
    }
    const StatsAction statsAction = statsActionOf(action);
    if (statsAction == STATS_NONE) {
        return 0;
    }
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        hardware->refreshGemPortCounters(classId, portId, statsAction);
    }
    return 0;
}

int refreshBridgePortPm(unsigned short classId, unsigned short instance, EnumOmciAction action)
{
    constexpr unsigned char tpIsPptpEthernetUni = 1;
    const auto* port = OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(instance);
    if (port == nullptr) {
        NRVK_LOG(3, "MAC bridge port config data(%hu) not found", instance);
        return -1;
    }
    const unsigned char tpType = port->getTpType(OMCI_ACTION_GET);
    if (tpType != tpIsPptpEthernetUni) {
        NRVK_LOG(3, "MAC bridge port config data(%hu) Association type is not PPPTP UNI(%hu)", instance, tpType);
        return -1;
    }
    refreshEthernetPm(classId, port->getTpPointer(OMCI_ACTION_GET), action);
    return 0;
}

}  // namespace nrvk
