// The count of finished intervals, which the host drives.
#include "OmciMeEthernetFrameExtendedPMCommonImplExtended.h"
#include "control/CallTable.h"

using Interval = OmciMeEthernetFrameExtendedPMCommonImplExtended;
using calls::callOf;

void CallTable::addIntervalCounter()
{
    m_Calls["getIntervalCounter"] = callOf(&Interval::getIntervalCounter);
    m_Calls["setIntervalCounter"] = callOf(&Interval::setIntervalCounter);
    m_Calls["incrementIntervalCounter"] = callOf(&Interval::incrementIntervalCounter);
    m_Calls["resetIntervalCounter"] = callOf(&Interval::resetIntervalCounter);
}
