#ifndef NRVK_IMPL_EXTENDED_OMCIMEVOIPLINESTATUSIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEVOIPLINESTATUSIMPLEXTENDED_H

#include "impl/OmciMeVoipLineStatusImpl.h"
#include "implExtended/VoiceEntity.h"

/// VoIP line status (G.988 9.9.11, class 141): the hardware layer is asked for the line's state at each read.
class OmciMeVoipLineStatusImplExtended : public nrvk::VoiceEntity<OmciMeVoipLineStatusImpl, -1>
{
public:
    using VoiceEntity::VoiceEntity;

    unsigned short getVoipCodecUsed(EnumOmciAction action) const override;
    unsigned char getVoipVoiceServerStatus(EnumOmciAction action) const override;
    unsigned char getVoipPortSessionType(EnumOmciAction action) const override;
    /// Deliberate: always 0xFFFF, not known, whatever is stored.
    unsigned short getVoipCall_1_PacketPeriod(EnumOmciAction action) const override;
    /// Deliberate: always null, not known; the OLT reads zeros.
    const unsigned char* getVoipCall_1_DestAddr(EnumOmciAction action) const override;
    unsigned char getVoipLineState(EnumOmciAction action) const override;
    unsigned char getEmergencyCallStatus(EnumOmciAction action) const override;

private:
    void refresh(EnumOmciAction action) const;
};

#endif
