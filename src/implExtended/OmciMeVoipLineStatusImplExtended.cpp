#include "implExtended/OmciMeVoipLineStatusImplExtended.h"

#include "impl/Hardware.h"

void OmciMeVoipLineStatusImplExtended::refresh(EnumOmciAction action) const
{
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->refreshVoipLineStatus(action, m_ManagedEntityInstance);
    }
}

unsigned short OmciMeVoipLineStatusImplExtended::getVoipCodecUsed(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeVoipLineStatusImpl::getVoipCodecUsed(OMCI_ACTION_GET);
}

unsigned char OmciMeVoipLineStatusImplExtended::getVoipVoiceServerStatus(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeVoipLineStatusImpl::getVoipVoiceServerStatus(OMCI_ACTION_GET);
}

unsigned char OmciMeVoipLineStatusImplExtended::getVoipPortSessionType(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeVoipLineStatusImpl::getVoipPortSessionType(OMCI_ACTION_GET);
}

unsigned short OmciMeVoipLineStatusImplExtended::getVoipCall_1_PacketPeriod(EnumOmciAction action) const
{
    NRVK_LOG(6, "Instance(%hu); Action(%d)", m_ManagedEntityInstance, action);
    return 0xFFFF;
}

const unsigned char* OmciMeVoipLineStatusImplExtended::getVoipCall_1_DestAddr(EnumOmciAction action) const
{
    NRVK_LOG(6, "Instance(%hu); Action(%d)", m_ManagedEntityInstance, action);
    return nullptr;
}

unsigned char OmciMeVoipLineStatusImplExtended::getVoipLineState(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeVoipLineStatusImpl::getVoipLineState(OMCI_ACTION_GET);
}

unsigned char OmciMeVoipLineStatusImplExtended::getEmergencyCallStatus(EnumOmciAction action) const
{
    refresh(action);
    return OmciMeVoipLineStatusImpl::getEmergencyCallStatus(OMCI_ACTION_GET);
}
