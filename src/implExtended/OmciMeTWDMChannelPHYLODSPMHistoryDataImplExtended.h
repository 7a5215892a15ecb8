#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPHYLODSPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPHYLODSPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelPHYLODSPMHistoryDataRefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel PHY/LODS performance monitoring history data (class 65406): its feed brings the interval end time
/// along.
class OmciMeTWDMChannelPHYLODSPMHistoryDataImplExtended
    : public OmciMeTWDMChannelPHYLODSPMHistoryDataRefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelPHYLODSPMHistoryDataImpl, &OmciHardwareIfc::refreshTwdmPhyLodsPm>>
{
public:
    using OmciMeTWDMChannelPHYLODSPMHistoryDataRefreshedCounters::
        OmciMeTWDMChannelPHYLODSPMHistoryDataRefreshedCounters;
};

#endif
