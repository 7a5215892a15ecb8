#include "implExtended/OmciMeVoipMediaProfileImplExtended.h"

#include "impl/Hardware.h"
#include "implExtended/Refusal.h"

using Impl = OmciMeVoipMediaProfileImpl;
using nrvk::refuse;

namespace {

constexpr bool isOffOrOn(unsigned char value)
{
    return value <= 1;
}

constexpr bool isCodec(unsigned char value)
{
    return value <= 18;
}

constexpr bool isPacketPeriod(unsigned char value)
{
    return value >= 10 && value <= 30;
}

}  // namespace

int OmciMeVoipMediaProfileImplExtended::setFaxMode(unsigned char value)
{
    return isOffOrOn(value) ? Impl::setFaxMode(value) : refuse("Invalid Fax Mode(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setCodecSelectionFirstOrder(unsigned char value)
{
    return isCodec(value) ? Impl::setCodecSelectionFirstOrder(value)
                          : refuse("Invalid 1st order Codec selection(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setPacketPeriodSelectionFirstOrder(unsigned char value)
{
    return isPacketPeriod(value) ? Impl::setPacketPeriodSelectionFirstOrder(value)
                                 : refuse("Invalid 1st order Packet Period selection (%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setSilenceSuppressionFirstOrder(unsigned char value)
{
    return isOffOrOn(value) ? Impl::setSilenceSuppressionFirstOrder(value)
                            : refuse("Invalid Silence Suppression 1st order(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setCodecSelectionSecondOrder(unsigned char value)
{
    return isCodec(value) ? Impl::setCodecSelectionSecondOrder(value)
                          : refuse("Invalid 2nd order Codec selection(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setPacketPeriodSelectionSecondOrder(unsigned char value)
{
    return isPacketPeriod(value) ? Impl::setPacketPeriodSelectionSecondOrder(value)
                                 : refuse("Invalid 2nd order Packet Period selection (%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setSilenceSuppressionSecondOrder(unsigned char value)
{
    return isOffOrOn(value) ? Impl::setSilenceSuppressionSecondOrder(value)
                            : refuse("Invalid Silence Suppression 2nd order(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setCodecSelectionThirdOrder(unsigned char value)
{
    return isCodec(value) ? Impl::setCodecSelectionThirdOrder(value)
                          : refuse("Invalid 3rd order Codec selection(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setPacketPeriodSelectionThirdOrder(unsigned char value)
{
    return isPacketPeriod(value) ? Impl::setPacketPeriodSelectionThirdOrder(value)
                                 : refuse("Invalid 3rd order Packet Period selection (%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setSilenceSuppressionThirdOrder(unsigned char value)
{
    return isOffOrOn(value) ? Impl::setSilenceSuppressionThirdOrder(value)
                            : refuse("Invalid Silence Suppression 3rd order(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setCodecSelectionFourthOrder(unsigned char value)
{
    return isCodec(value) ? Impl::setCodecSelectionFourthOrder(value)
                          : refuse("Invalid 4th order Codec selection(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setPacketPeriodSelectionFourthOrder(unsigned char value)
{
    return isPacketPeriod(value) ? Impl::setPacketPeriodSelectionFourthOrder(value)
                                 : refuse("Invalid 4th order Packet Period selection (%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setSilenceSuppressionFourthOrder(unsigned char value)
{
    return isOffOrOn(value) ? Impl::setSilenceSuppressionFourthOrder(value)
                            : refuse("Invalid Silence Suppression 4th order(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::setOobDtmf(unsigned char value)
{
    return isOffOrOn(value) ? Impl::setOobDtmf(value) : refuse("Invalid oob Dtmf(%hhu)", value);
}

int OmciMeVoipMediaProfileImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "VOIP_MEDIA_PROFILE : De-provisioning : Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    OmciMeVoipMediaProfileIf* profile = OmciMeVoipMediaProfileIf::getManagedEntityInstance(m_ManagedEntityInstance);
    if (profile == nullptr) {
        return 0;
    }
    NRVK_LOG(6, "VOIP_MEDIA_PROFILE : De-provisioning : Off to layer2");
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->removeVoipMediaProfile(profile);
    }
    return 0;
}
