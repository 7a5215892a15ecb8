#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEGEMPORTNETWORKCTPPERFORMANCEMONITORINGHISTORYDATAADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEGEMPORTNETWORKCTPPERFORMANCEMONITORINGHISTORYDATAADAPTEREXTENDED_H

#include "adapter/OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// GEM port network CTP performance monitoring history data (G.988 9.2.13, class 341): the hardware layer is asked by
/// port id.
class OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataAdapterExtended
    : public nrvk::GemPortPmAdapter<nrvk::PmAdapter<OmciMeGemPortNetworkCtpPerformanceMonitoringHistoryDataAdapter>>
{};

#endif
