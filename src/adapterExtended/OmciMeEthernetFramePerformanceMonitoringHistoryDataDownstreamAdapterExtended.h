#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATADOWNSTREAMADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATADOWNSTREAMADAPTEREXTENDED_H

#include "adapter/OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// Ethernet frame performance monitoring history data downstream (G.988 9.3.31, class 321): the hardware layer is asked
/// by Ethernet UNI.
class OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamAdapterExtended
    : public nrvk::BridgePortPmAdapter<
          nrvk::AnnouncedPmAdapter<OmciMeEthernetFramePerformanceMonitoringHistoryDataDownstreamAdapter>>
{};

#endif
