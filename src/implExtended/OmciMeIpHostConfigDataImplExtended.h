#ifndef NRVK_IMPL_EXTENDED_OMCIMEIPHOSTCONFIGDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEIPHOSTCONFIGDATAIMPLEXTENDED_H

#include "impl/OmciMeIpHostConfigDataImpl.h"

/// IP host config data (G.988 9.4.1, class 134): the ONU's IPv4 host. Once it can get an address, its bridge port is
/// provisioned.
class OmciMeIpHostConfigDataImplExtended : public OmciMeIpHostConfigDataImpl
{
public:
    using OmciMeIpHostConfigDataImpl::OmciMeIpHostConfigDataImpl;

    int setIpOptions(unsigned char value) override;
    /// @name Four bytes in network order.
    /// @{
    int setIpAddress(const unsigned char* value) override;
    int setMask(const unsigned char* value) override;
    int setGateway(const unsigned char* value) override;
    /// @}

    /// provisionBridgePort with the bridge port that points at this host. With static addressing it waits, with 0,
    /// until mask, address and gateway are all there. -1 when no bridge port points here.
    int applyConfigurationToHardwareForSet() override;
    /// Does nothing: a MIB reset leaves the binding of the IP host as it is.
    int eraseConfigurationFromHardware() override;

    /// The host's way to redo the layer-2 binding; provisions the bridge port without a look at the addresses. Nothing
    /// in the library calls it.
    void layer2Provisioning();

private:
    bool hasWhatStaticAddressingNeeds() const;
};

#endif
