#include "implExtended/ExtendedEthernetPm.h"

#include "OmciMePptpEthernetUniIf.h"
#include "impl/Hardware.h"

namespace nrvk {

namespace {

constexpr unsigned int kStatsContinuous = 0;
constexpr unsigned int kStatsCurrent = 1;
constexpr unsigned int kStatsHistory = 2;

unsigned short wordOf(unsigned char high, unsigned char low)
{
    return static_cast<unsigned short>((high << 8) | low);
}

}  // namespace

unsigned short PmControlBlock::parentClass() const
{
    return wordOf(m_Bytes[2], m_Bytes[3]);
}

unsigned short PmControlBlock::parentInstance() const
{
    return wordOf(m_Bytes[4], m_Bytes[5]);
}

unsigned short PmControlBlock::parentInstanceOfDoubledByte() const
{
    return wordOf(m_Bytes[4], m_Bytes[4]);
}

bool PmControlBlock::clearsCounters() const
{
    return (m_Bytes[6] & 0x80) != 0;
}

unsigned int PmControlBlock::statsAction(EnumOmciAction action) const
{
    if ((m_Bytes[11] & 0x01) != 0) {
        return kStatsContinuous;
    }
    return action == OMCI_ACTION_SET || action == OMCI_ACTION_GET_CURRENT_DATA ? kStatsCurrent : kStatsHistory;
}

bool hasParentUni(unsigned short instance)
{
    const bool found = OmciMePptpEthernetUniIf::getManagedEntityInstance(instance) != nullptr;
    if (!found) {
        NRVK_LOG(3, "Me instance %d is not available in the OMCI_PPTPETHERNETUNI class", instance);
    }
    return found;
}

void logParentClass(unsigned short parentClass)
{
    NRVK_LOG(3, "Me class %d is not a OMCI_PPTPETHERNETUNI class", parentClass);
}

void clearExtendedEthernetPm(unsigned short instance, unsigned int statsAction)
{
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        hardware->clearEthernetFrameExtendedPmCounters(instance, statsAction);
    }
}

void refreshExtendedEthernetPm(unsigned short classId, unsigned short instance, unsigned int statsAction)
{
    if (OmciHardwareIfc* hardware = hardwareOrLog()) {
        hardware->refreshEthernetFrameCounters(classId, instance, statsAction, 0, 0);
    }
}

}  // namespace nrvk
