#include "implExtended/OmciMeGemInterworkingTpImplExtended.h"

#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/SetByCreateCount.h"

OmciMeGemInterworkingTpImplExtended::OmciMeGemInterworkingTpImplExtended(unsigned short instance, bool createdByOlt)
    : OmciMeGemInterworkingTpImpl(instance, createdByOlt),
      m_AttributesNeeded(static_cast<unsigned short>(nrvk::numberOfSetByCreateAttributes(266) - 1))
{
    NRVK_LOG(6, "No. of SetByCreateAttrubutes (%u)", m_AttributesNeeded);
}

int OmciMeGemInterworkingTpImplExtended::setGemPortNetworkCtpConnPointer(unsigned short value)
{
    return counted(OmciMeGemInterworkingTpImpl::setGemPortNetworkCtpConnPointer(value));
}

int OmciMeGemInterworkingTpImplExtended::setInterworkingOption(unsigned char value)
{
    return counted(OmciMeGemInterworkingTpImpl::setInterworkingOption(value));
}

int OmciMeGemInterworkingTpImplExtended::setServiceProfilePointer(unsigned short value)
{
    return counted(OmciMeGemInterworkingTpImpl::setServiceProfilePointer(value));
}

int OmciMeGemInterworkingTpImplExtended::setInterworkingTpPointer(unsigned short value)
{
    return counted(OmciMeGemInterworkingTpImpl::setInterworkingTpPointer(value));
}

int OmciMeGemInterworkingTpImplExtended::setGalProfilePointer(unsigned short value)
{
    return counted(OmciMeGemInterworkingTpImpl::setGalProfilePointer(value));
}

int OmciMeGemInterworkingTpImplExtended::counted(int result)
{
    configureAnisideParametersToHardware();
    return result;
}

int OmciMeGemInterworkingTpImplExtended::configureAnisideParametersToHardware()
{
    ++m_AttributesSetSoFar;
    NRVK_LOG(6, "this(%p), No. of set_by_create attributes set so far(%u)", this, m_AttributesSetSoFar);
    if (m_AttributesSetSoFar == m_AttributesNeeded) {
        if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
            layer->provisionGemInterworkingTp(this);
        }
    }
    return 0;
}

int OmciMeGemInterworkingTpImplExtended::applyConfigurationToHardwareForSet()
{
    return 0;
}

int OmciMeGemInterworkingTpImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeGemInterworkingTp(this);
    }
    return 0;
}
