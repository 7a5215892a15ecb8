#include "implExtended/OmciMeTContImplExtended.h"

#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

bool isUnassigned(unsigned short allocId)
{
    return allocId == 0xFF || allocId == 0xFFFF;
}

}  // namespace

int OmciMeTContImplExtended::setAllocId(unsigned short value)
{
    NRVK_LOG(6, "Alloc Id(%hu)", value);
    if (value != m_AllocId && isUnassigned(value)) {
        remove();
    }
    OmciMeTContImpl::setAllocId(value);
    return 0;
}

int OmciMeTContImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Instance(%hu)", m_ManagedEntityInstance);
    if (!isUnassigned(m_AllocId)) {
        remove();
    }
    return 0;
}

void OmciMeTContImplExtended::remove()
{
    if (OmciHardwareIfc* layer = nrvk::hardwareOrLog()) {
        layer->removeTCont(this);
    }
}
