#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART2IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELTUNINGPMHISTORYDATAPART2IMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelTuningPMHistoryDataPart2RefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel tuning performance monitoring history data part 2 (class 65412): its feed brings the interval end time
/// along.
class OmciMeTWDMChannelTuningPMHistoryDataPart2ImplExtended
    : public OmciMeTWDMChannelTuningPMHistoryDataPart2RefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelTuningPMHistoryDataPart2Impl, &OmciHardwareIfc::refreshTwdmTuningPm>>
{
public:
    using OmciMeTWDMChannelTuningPMHistoryDataPart2RefreshedCounters::
        OmciMeTWDMChannelTuningPMHistoryDataPart2RefreshedCounters;
};

#endif
