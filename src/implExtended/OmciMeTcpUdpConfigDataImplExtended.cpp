#include "implExtended/OmciMeTcpUdpConfigDataImplExtended.h"

#include "impl/Log.h"

int OmciMeTcpUdpConfigDataImplExtended::setPortId(unsigned short value)
{
    m_ShadowPortId.keep(getPortId(OMCI_ACTION_GET));
    return OmciMeTcpUdpConfigDataImpl::setPortId(value);
}

int OmciMeTcpUdpConfigDataImplExtended::setProtocol(unsigned char value)
{
    m_ShadowProtocol.keep(getProtocol(OMCI_ACTION_GET));
    return OmciMeTcpUdpConfigDataImpl::setProtocol(value);
}

int OmciMeTcpUdpConfigDataImplExtended::setTosDiffservField(unsigned char value)
{
    m_ShadowTosDiffservField.keep(getTosDiffservField(OMCI_ACTION_GET));
    return OmciMeTcpUdpConfigDataImpl::setTosDiffservField(value);
}

int OmciMeTcpUdpConfigDataImplExtended::setIpHostPointer(unsigned short value)
{
    NRVK_LOG(6, "IpHostPonter(%u)", value);
    m_ShadowIpHostPointer.keep(getIpHostPointer(OMCI_ACTION_GET));
    return OmciMeTcpUdpConfigDataImpl::setIpHostPointer(value);
}

int OmciMeTcpUdpConfigDataImplExtended::applyConfigurationToHardwareForSet()
{
    m_ShadowProtocol.follow(m_Protocol);
    m_ShadowTosDiffservField.follow(m_TosDiffservField);
    m_ShadowIpHostPointer.follow(m_IpHostPointer);
    m_ShadowPortId.follow(m_PortId);
    NRVK_LOG(6, "Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    return 0;
}

int OmciMeTcpUdpConfigDataImplExtended::eraseConfigurationFromHardware()
{
    return 0;
}
