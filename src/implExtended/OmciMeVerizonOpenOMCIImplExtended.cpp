#include "implExtended/OmciMeVerizonOpenOMCIImplExtended.h"

#include "impl/Log.h"

int OmciMeVerizonOpenOMCIImplExtended::setSpecificationVersionInUse(unsigned int value)
{
    if (value > getSupportedSpecificationVersion(OMCI_ACTION_GET)) {
        // Deliberate: the major version stands unshifted in the line that operators search for.
        NRVK_LOG(3, "Version not supported(%hu.%hu)", value & 0xFF00, value & 0xFF);
        return -1;
    }
    return OmciMeVerizonOpenOMCIImpl::setSpecificationVersionInUse(value);
}
