#ifndef NRVK_IMPL_EXTENDED_OMCIMEVOIPCONFIGDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEVOIPCONFIGDATAIMPLEXTENDED_H

#include "impl/OmciMeVoipConfigDataImpl.h"
#include "implExtended/Shadow.h"

/// VoIP config data (G.988 9.9.18, class 138): how the ONU's voice service is signalled and configured.
class OmciMeVoipConfigDataImplExtended : public OmciMeVoipConfigDataImpl
{
public:
    using OmciMeVoipConfigDataImpl::OmciMeVoipConfigDataImpl;

    /// 0 none, 1 SIP, 2 H.248, 3 MGCP, 255 selected by non-OMCI management; -1 for others.
    int setSignallingProtocolUsed(unsigned char value) override;
    /// 0 to 4; -1 for others.
    int setVoipConfigurationMethodUsed(unsigned char value) override;
    int setVoipConfigurationAddressPointer(unsigned short value) override;

    /// applyVoipConfig when protocol, method or address pointer changed; always 0. Retrieve profile goes along but is
    /// no change of its own.
    int applyConfigurationToHardwareForSet() override;
    int eraseConfigurationFromHardware() override;

private:
    nrvk::Shadow<unsigned char> m_ShadowSignallingProtocolUsed{m_SignallingProtocolUsed};
    nrvk::Shadow<unsigned char> m_ShadowVoipConfigurationMethodUsed{m_VoipConfigurationMethodUsed};
    nrvk::Shadow<unsigned short> m_ShadowVoipConfigurationAddressPointer{m_VoipConfigurationAddressPointer};
    nrvk::Shadow<unsigned char> m_ShadowRetrieveProfile{m_RetrieveProfile};
};

#endif
