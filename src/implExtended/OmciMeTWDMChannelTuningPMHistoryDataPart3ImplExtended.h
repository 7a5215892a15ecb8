#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART3IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART3IMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelTuningPMHistoryDataPart3RefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel tuning performance monitoring history data part 3 (class 65413): its feed brings the interval end time
/// along.
class OmciMeTWDMChannelTuningPMHistoryDataPart3ImplExtended
    : public OmciMeTWDMChannelTuningPMHistoryDataPart3RefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelTuningPMHistoryDataPart3Impl, &OmciHardwareIfc::refreshTwdmTuningPm>>
{
public:
    using OmciMeTWDMChannelTuningPMHistoryDataPart3RefreshedCounters::
        OmciMeTWDMChannelTuningPMHistoryDataPart3RefreshedCounters;
};

#endif
