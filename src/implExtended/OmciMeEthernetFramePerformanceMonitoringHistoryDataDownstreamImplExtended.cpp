#include "implExtended/OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamImplExtended.h"

unsigned char OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamImplExtended::getIntervalEndTime(
    EnumOmciAction action) const
{
    NRVK_LOG(6, "Instance(%hu); Action(%d)", m_ManagedEntityInstance, action);
    return SharedIntervalEndTime::getIntervalEndTime(action);
}
