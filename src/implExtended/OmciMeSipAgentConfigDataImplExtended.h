#ifndef NRVK_IMPL_EXTENDED_OMCIMESIPAGENTCONFIGDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMESIPAGENTCONFIGDATAIMPLEXTENDED_H

#include "impl/OmciMeSipAgentConfigDataImpl.h"
#include "implExtended/Shadow.h"

/// SIP agent config data (G.988 9.9.3, class 150): one agent in up to two instances, the first being the master that
/// the hardware layer is given.
class OmciMeSipAgentConfigDataImplExtended : public OmciMeSipAgentConfigDataImpl
{
public:
    using OmciMeSipAgentConfigDataImpl::OmciMeSipAgentConfigDataImpl;

    int setProxyServerAddressPointer(unsigned short value) override;
    int setOutboundProxyAddressPointer(unsigned short value) override;
    int setPrimarySipDns(unsigned int value) override;
    int setSecondarySipDns(unsigned int value) override;
    int setTcpUdpPointer(unsigned short value) override;
    int setSipRegExpTime(unsigned int value) override;
    int setSipReregHeadStartTime(unsigned int value) override;
    int setHostPartUri(unsigned short value) override;
    int setSipRegistrar(unsigned short value) override;
    int setSoftswitch(const unsigned char* value) override;
    int setSipOptionTransmitControl(unsigned char value) override;
    int setSipUriFormat(unsigned char value) override;
    int setRedundantSipAgentPointer(unsigned short value) override;
    unsigned char getSipStatus(EnumOmciAction action) const override;

    /// The softswitch in force before the last set, up to its first zero byte. It never counts as a change.
    nrvk::TableRow<4> getOldSoftswitch() const { return m_ShadowSoftswitch; }

    /// provisionSipAgent with the master, on a change of the only instance or of the second one. Deliberate: while
    /// there is a second instance, a change of the first provisions nothing. Always 0.
    int applyConfigurationToHardwareForSet() override;
    /// removeSipAgent when the master goes; always 0.
    int eraseConfigurationFromHardware() override;

private:
    /// Lets all shadows follow the store; true when one moved.
    bool followStore();

    nrvk::Shadow<unsigned short> m_ShadowProxyServerAddressPointer{m_ProxyServerAddressPointer};
    nrvk::Shadow<unsigned short> m_ShadowOutboundProxyAddressPointer{m_OutboundProxyAddressPointer};
    nrvk::Shadow<unsigned int> m_ShadowPrimarySipDns{m_PrimarySipDns};
    nrvk::Shadow<unsigned int> m_ShadowSecondarySipDns{m_SecondarySipDns};
    nrvk::Shadow<unsigned short> m_ShadowTcpUdpPointer{m_TcpUdpPointer};
    nrvk::Shadow<unsigned int> m_ShadowSipRegExpTime{m_SipRegExpTime};
    nrvk::Shadow<unsigned int> m_ShadowSipReregHeadStartTime{m_SipReregHeadStartTime};
    nrvk::Shadow<unsigned short> m_ShadowHostPartUri{m_HostPartUri};
    nrvk::Shadow<unsigned short> m_ShadowSipRegistrar{m_SipRegistrar};
    nrvk::TableRow<4> m_ShadowSoftswitch{};
    nrvk::Shadow<unsigned char> m_ShadowSipOptionTransmitControl{m_SipOptionTransmitControl};
    nrvk::Shadow<unsigned char> m_ShadowSipUriFormat{m_SipUriFormat};
    nrvk::Shadow<unsigned short> m_ShadowRedundantSipAgentPointer{m_RedundantSipAgentPointer};
};

#endif
