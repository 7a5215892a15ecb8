#ifndef NRVK_IMPL_EXTENDED_GEM_INTERWORKING_TP_H
#define NRVK_IMPL_EXTENDED_GEM_INTERWORKING_TP_H

#include "impl/OmciMeGemInterworkingTpImpl.h"

/// GEM interworking termination point (G.988 9.2.4, class 266).
///
/// It reaches the hardware layer once, when the setters of a create have all run: five of them count, as many as there
/// are set-by-create attributes beside the PPTP counter. A later Set only stores.
class OmciMeGemInterworkingTpImplExtended : public OmciMeGemInterworkingTpImpl
{
public:
    OmciMeGemInterworkingTpImplExtended(unsigned short instance, bool createdByOlt);

    int setGemPortNetworkCtpConnPointer(unsigned short value) override;
    int setInterworkingOption(unsigned char value) override;
    int setServiceProfilePointer(unsigned short value) override;
    int setInterworkingTpPointer(unsigned short value) override;
    int setGalProfilePointer(unsigned short value) override;

    /// Counts one attribute, and provisions when it is the last one needed. Always 0.
    int configureAnisideParametersToHardware();
    int applyConfigurationToHardwareForSet() override;
    int eraseConfigurationFromHardware() override;

private:
    /// Passes on the base class's result.
    int counted(int result);

    unsigned short m_AttributesSetSoFar = 0;
    unsigned short m_AttributesNeeded;
};

#endif
