#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART2IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART2IMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelPLOAMPMHistoryDataPart2RefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel PLOAM performance monitoring history data part 2 (class 65409): its feed brings the interval end time
/// along.
class OmciMeTWDMChannelPLOAMPMHistoryDataPart2ImplExtended
    : public OmciMeTWDMChannelPLOAMPMHistoryDataPart2RefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelPLOAMPMHistoryDataPart2Impl, &OmciHardwareIfc::refreshTwdmPloamPm>>
{
public:
    using OmciMeTWDMChannelPLOAMPMHistoryDataPart2RefreshedCounters::
        OmciMeTWDMChannelPLOAMPMHistoryDataPart2RefreshedCounters;
};

#endif
