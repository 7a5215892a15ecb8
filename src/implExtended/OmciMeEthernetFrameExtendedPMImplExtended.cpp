#include "implExtended/OmciMeEthernetFrameExtendedPMImplExtended.h"

void OmciMeEthernetFrameExtendedPMImplExtended::takeParent(const nrvk::PmControlBlock& controlBlock)
{
    const unsigned short parentClass = controlBlock.parentClass();
    const unsigned short parentInstance = controlBlock.parentInstanceOfDoubledByte();
    if (parentClass != nrvk::kPptpEthernetUniClass) {
        nrvk::logParentClass(parentClass);
    } else if (nrvk::hasParentUni(parentInstance)) {
        m_ParentInstance = parentInstance;
        NRVK_LOG(6, "Parent instance(%hu)", m_ParentInstance);
    }
}
