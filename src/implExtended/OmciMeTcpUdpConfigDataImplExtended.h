#ifndef NRVK_IMPL_EXTENDED_OMCIMETCPUDPCONFIGDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETCPUDPCONFIGDATAIMPLEXTENDED_H

#include "impl/OmciMeTcpUdpConfigDataImpl.h"
#include "implExtended/Shadow.h"

/// TCP/UDP config data (G.988 9.4.3, class 136): a port on an IP host. Nothing of it reaches the hardware layer.
class OmciMeTcpUdpConfigDataImplExtended : public OmciMeTcpUdpConfigDataImpl
{
public:
    using OmciMeTcpUdpConfigDataImpl::OmciMeTcpUdpConfigDataImpl;

    int setPortId(unsigned short value) override;
    int setProtocol(unsigned char value) override;
    int setTosDiffservField(unsigned char value) override;
    int setIpHostPointer(unsigned short value) override;

    /// @name The values before the set in progress; after its end, the stored ones.
    /// @{
    unsigned short getOldPortId() const { return m_ShadowPortId.get(); }
    unsigned char getOldProtocol() const { return m_ShadowProtocol.get(); }
    unsigned char getOldTosDiffservField() const { return m_ShadowTosDiffservField.get(); }
    unsigned short getOldIpHostPointer() const { return m_ShadowIpHostPointer.get(); }
    /// @}

    /// Ends the set; calls no hardware, always 0.
    int applyConfigurationToHardwareForSet() override;
    int eraseConfigurationFromHardware() override;

private:
    nrvk::Shadow<unsigned char> m_ShadowProtocol{m_Protocol};
    nrvk::Shadow<unsigned char> m_ShadowTosDiffservField{m_TosDiffservField};
    nrvk::Shadow<unsigned short> m_ShadowIpHostPointer{m_IpHostPointer};
    nrvk::Shadow<unsigned short> m_ShadowPortId{m_PortId};
};

#endif
