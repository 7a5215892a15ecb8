#ifndef NRVK_IMPL_EXTENDED_DATA_PATH_H
#define NRVK_IMPL_EXTENDED_DATA_PATH_H

#include "OmciMeMacBridgePortConfigurationDataIf.h"

namespace nrvk {

/// TP types of a MAC bridge port (G.988 9.3.4) that the library acts on.
enum BridgePortTpType : unsigned char
{
    TP_TYPE_ETHERNET_UNI = 1,
    TP_TYPE_MAPPER = 3,
    TP_TYPE_IP_HOST = 4,
    TP_TYPE_MULTICAST_GEM_INTERWORKING_TP = 6,
};

/// What the hardware layer finds a bridge port by.
enum class BridgePortKey : unsigned char
{
    ethernetUni = 1,
    ipHost = 4,
    vlanTaggingFilter = 5,
};

/// The bridge port of an entity as the hardware layer knows it; null when it knows none, or when it is not set.
OmciMeMacBridgePortConfigurationDataIf* findBridgePort(BridgePortKey key, unsigned short instance);

/// The hardware layer takes the port as it stands now.
void provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf& port);

/// Takes the port's service away and builds it anew.
void rebuildBridgePort(OmciMeMacBridgePortConfigurationDataIf& port);

void removeBridgePortService(unsigned short instance);

}  // namespace nrvk

#endif
