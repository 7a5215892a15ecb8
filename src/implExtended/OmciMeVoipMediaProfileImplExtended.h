#ifndef NRVK_IMPL_EXTENDED_OMCIMEVOIPMEDIAPROFILEIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEVOIPMEDIAPROFILEIMPLEXTENDED_H

#include "impl/OmciMeVoipMediaProfileImpl.h"
#include "implExtended/VoiceEntity.h"

/// VoIP media profile (G.988 9.9.5, class 142): its values are checked; its delete reaches the hardware layer.
class OmciMeVoipMediaProfileImplExtended : public nrvk::VoiceEntity<OmciMeVoipMediaProfileImpl>
{
public:
    using VoiceEntity::VoiceEntity;

    /// 0 pass-through, 1 T.38; -1 for others.
    int setFaxMode(unsigned char value) override;

    /// @name Codecs (RTP payload types 0 to 18), packet periods (10 to 30 ms) and silence suppression (0 off, 1 on) of
    /// the four orders; -1 for others.
    /// @{
    int setCodecSelectionFirstOrder(unsigned char value) override;
    int setPacketPeriodSelectionFirstOrder(unsigned char value) override;
    int setSilenceSuppressionFirstOrder(unsigned char value) override;
    int setCodecSelectionSecondOrder(unsigned char value) override;
    int setPacketPeriodSelectionSecondOrder(unsigned char value) override;
    int setSilenceSuppressionSecondOrder(unsigned char value) override;
    int setCodecSelectionThirdOrder(unsigned char value) override;
    int setPacketPeriodSelectionThirdOrder(unsigned char value) override;
    int setSilenceSuppressionThirdOrder(unsigned char value) override;
    int setCodecSelectionFourthOrder(unsigned char value) override;
    int setPacketPeriodSelectionFourthOrder(unsigned char value) override;
    int setSilenceSuppressionFourthOrder(unsigned char value) override;
    /// @}

    /// 0 off, 1 on; -1 for others.
    int setOobDtmf(unsigned char value) override;

    /// removeVoipMediaProfile; always 0.
    int eraseConfigurationFromHardware() override;
};

#endif
