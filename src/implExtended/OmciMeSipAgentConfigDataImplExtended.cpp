#include "implExtended/OmciMeSipAgentConfigDataImplExtended.h"

#include "impl/Log.h"

int OmciMeSipAgentConfigDataImplExtended::setProxyServerAddressPointer(unsigned short value)
{
    m_ShadowProxyServerAddressPointer.keep(m_ProxyServerAddressPointer);
    return OmciMeSipAgentConfigDataImpl::setProxyServerAddressPointer(value);
}

int OmciMeSipAgentConfigDataImplExtended::setOutboundProxyAddressPointer(unsigned short value)
{
    m_ShadowOutboundProxyAddressPointer.keep(m_OutboundProxyAddressPointer);
    return OmciMeSipAgentConfigDataImpl::setOutboundProxyAddressPointer(value);
}

int OmciMeSipAgentConfigDataImplExtended::setPrimarySipDns(unsigned int value)
{
    m_ShadowPrimarySipDns.keep(m_PrimarySipDns);
    return OmciMeSipAgentConfigDataImpl::setPrimarySipDns(value);
}

int OmciMeSipAgentConfigDataImplExtended::setSecondarySipDns(unsigned int value)
{
    m_ShadowSecondarySipDns.keep(m_SecondarySipDns);
    return OmciMeSipAgentConfigDataImpl::setSecondarySipDns(value);
}

int OmciMeSipAgentConfigDataImplExtended::setTcpUdpPointer(unsigned short value)
{
    m_ShadowTcpUdpPointer.keep(m_TcpUdpPointer);
    return OmciMeSipAgentConfigDataImpl::setTcpUdpPointer(value);
}

int OmciMeSipAgentConfigDataImplExtended::setSipRegExpTime(unsigned int value)
{
    m_ShadowSipRegExpTime.keep(m_SipRegExpTime);
    return OmciMeSipAgentConfigDataImpl::setSipRegExpTime(value);
}

int OmciMeSipAgentConfigDataImplExtended::setSipReregHeadStartTime(unsigned int value)
{
    m_ShadowSipReregHeadStartTime.keep(m_SipReregHeadStartTime);
    return OmciMeSipAgentConfigDataImpl::setSipReregHeadStartTime(value);
}

int OmciMeSipAgentConfigDataImplExtended::setHostPartUri(unsigned short value)
{
    m_ShadowHostPartUri.keep(m_HostPartUri);
    return OmciMeSipAgentConfigDataImpl::setHostPartUri(value);
}

int OmciMeSipAgentConfigDataImplExtended::setSipRegistrar(unsigned short value)
{
    m_ShadowSipRegistrar.keep(m_SipRegistrar);
    return OmciMeSipAgentConfigDataImpl::setSipRegistrar(value);
}

int OmciMeSipAgentConfigDataImplExtended::setSoftswitch(const unsigned char* value)
{
    m_ShadowSoftswitch = nrvk::tableRow<4>(m_Softswitch.data());
    return OmciMeSipAgentConfigDataImpl::setSoftswitch(value);
}

int OmciMeSipAgentConfigDataImplExtended::setSipOptionTransmitControl(unsigned char value)
{
    m_ShadowSipOptionTransmitControl.keep(m_SipOptionTransmitControl);
    return OmciMeSipAgentConfigDataImpl::setSipOptionTransmitControl(value);
}

int OmciMeSipAgentConfigDataImplExtended::setSipUriFormat(unsigned char value)
{
    m_ShadowSipUriFormat.keep(m_SipUriFormat);
    return OmciMeSipAgentConfigDataImpl::setSipUriFormat(value);
}

int OmciMeSipAgentConfigDataImplExtended::setRedundantSipAgentPointer(unsigned short value)
{
    m_ShadowRedundantSipAgentPointer.keep(m_RedundantSipAgentPointer);
    return OmciMeSipAgentConfigDataImpl::setRedundantSipAgentPointer(value);
}

unsigned char OmciMeSipAgentConfigDataImplExtended::getSipStatus(EnumOmciAction action) const
{
    NRVK_LOG(6, " getSipStatus getaction(%hu)", action);
    return OmciMeSipAgentConfigDataImpl::getSipStatus(OMCI_ACTION_GET);
}

bool OmciMeSipAgentConfigDataImplExtended::followStore()
{
    bool changed = m_ShadowProxyServerAddressPointer.follow(m_ProxyServerAddressPointer);
    changed |= m_ShadowOutboundProxyAddressPointer.follow(m_OutboundProxyAddressPointer);
    changed |= m_ShadowPrimarySipDns.follow(m_PrimarySipDns);
    changed |= m_ShadowSecondarySipDns.follow(m_SecondarySipDns);
    changed |= m_ShadowTcpUdpPointer.follow(m_TcpUdpPointer);
    changed |= m_ShadowSipRegExpTime.follow(m_SipRegExpTime);
    changed |= m_ShadowSipReregHeadStartTime.follow(m_SipReregHeadStartTime);
    changed |= m_ShadowHostPartUri.follow(m_HostPartUri);
    changed |= m_ShadowSipRegistrar.follow(m_SipRegistrar);
    changed |= m_ShadowSipOptionTransmitControl.follow(m_SipOptionTransmitControl);
    changed |= m_ShadowSipUriFormat.follow(m_SipUriFormat);
    changed |= m_ShadowRedundantSipAgentPointer.follow(m_RedundantSipAgentPointer);
    return changed;
}

int OmciMeSipAgentConfigDataImplExtended::applyConfigurationToHardwareForSet()
{
    OmciMeSipAgentConfigDataIf* master = OmciMeSipAgentConfigDataIf::getFirstManagedEntityInstance();
    const unsigned short first = master != nullptr ? master->getManagedEntityInstance() : 0;
    const OmciMeSipAgentConfigDataIf* follower = OmciMeSipAgentConfigDataIf::getNextManagedEntityInstance(first);
    const unsigned short second = follower != nullptr ? follower->getManagedEntityInstance() : 0;
    NRVK_LOG(6,
             "ApplyConfig of Sip Agent Data for Managed Entity Instance (%hu),  first Managed Entity Instance (%hu), "
             "second Managed Entity Instance (%hu)",
             m_ManagedEntityInstance, first, second);
    const bool changed = followStore();
    const unsigned short provisioning = second == 0 ? first : second;
    if (!changed || master == nullptr || m_ManagedEntityInstance != provisioning) {
        NRVK_LOG(7,
                 "Apply call for SipAgentInstance  other than first Instance should never happen  "
                 "Managed Entity Instance (%hu)",
                 m_ManagedEntityInstance);
        return 0;
    }
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->provisionSipAgent(master);
    }
    return 0;
}

int OmciMeSipAgentConfigDataImplExtended::eraseConfigurationFromHardware()
{
    OmciMeSipAgentConfigDataIf* master = OmciMeSipAgentConfigDataIf::getFirstManagedEntityInstance();
    const unsigned short first = master != nullptr ? master->getManagedEntityInstance() : 0;
    NRVK_LOG(6, "EraseConfig of Sip Agent Data for Managed Entity Instance (%hu), first Managed Entity Instance (%hu)",
             m_ManagedEntityInstance, first);
    if (master == nullptr || m_ManagedEntityInstance != first) {
        NRVK_LOG(7,
                 "erase config call for SipAgentInstance  other than first Instance should never happen  "
                 "Managed Entity Instance (%hu)",
                 m_ManagedEntityInstance);
        return 0;
    }
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->removeSipAgent(master);
    }
    return 0;
}
