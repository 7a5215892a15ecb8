#ifndef NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATAUPSTREAMIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATAUPSTREAMIMPLEXTENDED_H

#include "impl/OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Ethernet frame performance monitoring history data upstream (G.988 9.3.30, class 322): frames towards the OLT on a
/// bridge port, whose id it has.
class OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamImplExtended
    : public nrvk::SharedIntervalEndTime<
          nrvk::PmHistory<OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamImpl>>
{
public:
    using SharedIntervalEndTime::SharedIntervalEndTime;
};

#endif
