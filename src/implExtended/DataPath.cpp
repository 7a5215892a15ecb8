#include "implExtended/DataPath.h"

#include "impl/Hardware.h"

namespace nrvk {

OmciMeMacBridgePortConfigurationDataIf* findBridgePort(BridgePortKey key, unsigned short instance)
{
    OmciMeMacBridgePortConfigurationDataIf* port = nullptr;
    if (OmciHardwareIfc* layer = hardwareOrLog()) {
        layer->findMacBridgePortByTp(static_cast<unsigned char>(key), instance, &port);
    }
    return port;
}

void provisionBridgePort(OmciMeMacBridgePortConfigurationDataIf& port)
{
    if (OmciHardwareIfc* layer = hardwareOrLog()) {
        layer->provisionBridgePort(&port);
    }
}

void rebuildBridgePort(OmciMeMacBridgePortConfigurationDataIf& port)
{
    removeBridgePortService(port.getManagedEntityInstance());
    provisionBridgePort(port);
}

void removeBridgePortService(unsigned short instance)
{
    if (OmciHardwareIfc* layer = hardwareOrLog()) {
        layer->removeBridgePortService(instance);
    }
}

}  // namespace nrvk
