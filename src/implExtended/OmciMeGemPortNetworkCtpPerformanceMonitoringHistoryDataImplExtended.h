#ifndef NRVK_IMPL_EXTENDED_OMCIMEGEMPORTNETWORKCTPPERFORMANCEMONITORINGHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEGEMPORTNETWORKCTPPERFORMANCEMONITORINGHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// GEM port network CTP performance monitoring history data (G.988 9.2.13, class 341): frames of the GEM port network
/// CTP whose id it has.
class OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataImplExtended
    : public nrvk::FinishedIntervalEndTime<nrvk::PmHistory<OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataImpl>>
{
public:
    using FinishedIntervalEndTime::FinishedIntervalEndTime;
};

#endif
