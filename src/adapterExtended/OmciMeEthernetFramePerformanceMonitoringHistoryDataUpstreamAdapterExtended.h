#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATAUPSTREAMADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETFRAMEPERFORMANCEMONITORINGHISTORYDATAUPSTREAMADAPTEREXTENDED_H

#include "adapter/OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// Ethernet frame performance monitoring history data upstream (G.988 9.3.30, class 322): the hardware layer is asked
/// by Ethernet UNI.
class OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamAdapterExtended
    : public nrvk::BridgePortPmAdapter<
          nrvk::AnnouncedPmAdapter<OmciMeEthernetFramePerformanceMonitoringHistoryDataUpstreamAdapter>>
{};

#endif
