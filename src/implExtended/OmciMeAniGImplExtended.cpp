#include "implExtended/OmciMeAniGImplExtended.h"

#include "impl/Hardware.h"
#include "impl/Log.h"

unsigned short OmciMeAniGImplExtended::getOpticalSignalLevel(EnumOmciAction /*action*/) const
{
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->refreshAniOpticalSignalLevel(m_ManagedEntityInstance);
    }
    const unsigned short level = OmciMeAniGImpl::getOpticalSignalLevel(OMCI_ACTION_GET);
    NRVK_LOG(6, "Optical signal level(%hu)", level);
    return level;
}

unsigned short OmciMeAniGImplExtended::getTransmitOpticalLevel(EnumOmciAction /*action*/) const
{
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->refreshAniTransmitOpticalLevel(m_ManagedEntityInstance);
    }
    const unsigned short level = OmciMeAniGImpl::getTransmitOpticalLevel(OMCI_ACTION_GET);
    NRVK_LOG(6, "Optical signal level(%hu)", level);
    return level;
}
