#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART1IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART1IMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelTuningPMHistoryDataPart1RefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel tuning performance monitoring history data part 1 (class 65411): its feed brings the interval end time
/// along.
class OmciMeTWDMChannelTuningPMHistoryDataPart1ImplExtended
    : public OmciMeTWDMChannelTuningPMHistoryDataPart1RefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelTuningPMHistoryDataPart1Impl, &OmciHardwareIfc::refreshTwdmTuningPm>>
{
public:
    using OmciMeTWDMChannelTuningPMHistoryDataPart1RefreshedCounters::
        OmciMeTWDMChannelTuningPMHistoryDataPart1RefreshedCounters;
};

#endif
