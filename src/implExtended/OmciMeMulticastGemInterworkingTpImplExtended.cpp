#include "implExtended/OmciMeMulticastGemInterworkingTpImplExtended.h"

#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/SetByCreateCount.h"

OmciMeMulticastGemInterworkingTpImplExtended::OmciMeMulticastGemInterworkingTpImplExtended(unsigned short instance,
                                                                                           bool createdByOlt)
    : OmciMeMulticastGemInterworkingTpImpl(instance, createdByOlt),
      m_CreateAttributes(nrvk::numberOfSetByCreateAttributes(281))
{
    NRVK_LOG(6, "No. of SetByCreateAttrubutes (%u)", m_CreateAttributes);
}

int OmciMeMulticastGemInterworkingTpImplExtended::setGemPortNetworkCtpConnPointer(unsigned short value)
{
    return counted(OmciMeMulticastGemInterworkingTpImpl::setGemPortNetworkCtpConnPointer(value));
}

int OmciMeMulticastGemInterworkingTpImplExtended::setInterworkingOption(unsigned char value)
{
    return counted(OmciMeMulticastGemInterworkingTpImpl::setInterworkingOption(value));
}

int OmciMeMulticastGemInterworkingTpImplExtended::setServiceProfilePointer(unsigned short value)
{
    return counted(OmciMeMulticastGemInterworkingTpImpl::setServiceProfilePointer(value));
}

int OmciMeMulticastGemInterworkingTpImplExtended::setGalProfilePointer(unsigned short value)
{
    return counted(OmciMeMulticastGemInterworkingTpImpl::setGalProfilePointer(value));
}

int OmciMeMulticastGemInterworkingTpImplExtended::setIpv4MulticastAddrTable(const unsigned char* value)
{
    return counted(OmciMeMulticastGemInterworkingTpImpl::setIpv4MulticastAddrTable(value));
}

int OmciMeMulticastGemInterworkingTpImplExtended::counted(int result)
{
    configureAnisideParametersToHardware();
    return result;
}

int OmciMeMulticastGemInterworkingTpImplExtended::configureAnisideParametersToHardware()
{
    ++m_AttributesSetSoFar;
    NRVK_LOG(6, "this(%p), No of set_by_create attributes set so far(%u)", this, m_AttributesSetSoFar);
    // Without an adapter the number is 0: nothing equals -1, and the entity never provisions.
    if (m_AttributesSetSoFar == m_CreateAttributes - 1) {
        if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
            layer->provisionMulticastGemInterworkingTp(this);
        }
    }
    return 0;
}

int OmciMeMulticastGemInterworkingTpImplExtended::applyConfigurationToHardwareForSet()
{
    return 0;
}

int OmciMeMulticastGemInterworkingTpImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeMulticastGemInterworkingTp(this);
    }
    return 0;
}
