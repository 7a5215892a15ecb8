#ifndef NRVK_IMPL_EXTENDED_MULTICAST_GEM_INTERWORKING_TP_H
#define NRVK_IMPL_EXTENDED_MULTICAST_GEM_INTERWORKING_TP_H

#include "impl/OmciMeMulticastGemInterworkingTpImpl.h"

/// Multicast GEM interworking termination point (G.988 9.2.5, class 281).
///
/// It reaches the hardware layer once, with the first row of the IPv4 multicast address table: four set-by-create
/// attributes count, and that row. Later rows only store.
class OmciMeMulticastGemInterworkingTpImplExtended : public OmciMeMulticastGemInterworkingTpImpl
{
public:
    OmciMeMulticastGemInterworkingTpImplExtended(unsigned short instance, bool createdByOlt);

    int setGemPortNetworkCtpConnPointer(unsigned short value) override;
    int setInterworkingOption(unsigned char value) override;
    int setServiceProfilePointer(unsigned short value) override;
    int setGalProfilePointer(unsigned short value) override;
    int setIpv4MulticastAddrTable(const unsigned char* value) override;

    /// Counts one attribute, and provisions when it is the last one needed. Always 0.
    int configureAnisideParametersToHardware();
    int applyConfigurationToHardwareForSet() override;
    int eraseConfigurationFromHardware() override;

private:
    /// Passes on the base class's result.
    int counted(int result);

    unsigned short m_AttributesSetSoFar = 0;
    unsigned short m_CreateAttributes;
};

#endif
