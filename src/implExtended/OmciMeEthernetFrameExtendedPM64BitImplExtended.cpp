#include "implExtended/OmciMeEthernetFrameExtendedPM64BitImplExtended.h"

#include "OmciMeVirtualEthernetInterfacePointIf.h"

namespace {

constexpr unsigned short kVeipClass = 329;

}  // namespace

void OmciMeEthernetFrameExtendedPM64BitImplExtended::takeParent(const nrvk::PmControlBlock& controlBlock)
{
    m_ParentClass = controlBlock.parentClass();
    const unsigned short parentInstance = controlBlock.parentInstance();
    if (m_ParentClass == nrvk::kPptpEthernetUniClass) {
        if (nrvk::hasParentUni(parentInstance)) {
            m_UniInstance = parentInstance;
        }
    } else if (m_ParentClass == kVeipClass) {
        OmciMeVirtualEthernetInterfacePointIf::getManagedEntityInstance(parentInstance);  // logs a missing one
        m_VeipInstance = parentInstance;
    } else {
        nrvk::logParentClass(m_ParentClass);
    }
}

nrvk::ExtendedEthernetPm64BitRefresh
OmciMeEthernetFrameExtendedPM64BitImplExtended::refreshOf(EnumOmciAction action) const
{
    return {getStatsAction(action), m_ParentClass, m_UniInstance, m_VeipInstance};
}

nrvk::ExtendedEthernetPm64BitRefresh nrvk::refreshOf(const OmciMeEthernetFrameExtendedPM64BitIf& pm,
                                                     EnumOmciAction action)
{
    // The store makes no other kind of object for the class.
    return static_cast<const OmciMeEthernetFrameExtendedPM64BitImplExtended&>(pm).refreshOf(action);
}
