#ifndef NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATADOWNSTREAMIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATADOWNSTREAMIMPLEXTENDED_H

#include "impl/OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Ethernet frame performance monitoring history data downstream (G.988 9.3.31, class 321): frames towards the user on
/// a bridge port, whose id it has.
class OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamImplExtended
    : public nrvk::SharedIntervalEndTime<
          nrvk::PmHistory<OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamImpl>>
{
public:
    using SharedIntervalEndTime::SharedIntervalEndTime;

    unsigned char getIntervalEndTime(EnumOmciAction action) const override;
};

#endif
