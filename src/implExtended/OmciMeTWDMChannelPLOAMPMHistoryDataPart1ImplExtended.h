#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART1IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART1IMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelPLOAMPMHistoryDataPart1RefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel PLOAM performance monitoring history data part 1 (class 65408): its feed brings the interval end time
/// along.
class OmciMeTWDMChannelPLOAMPMHistoryDataPart1ImplExtended
    : public OmciMeTWDMChannelPLOAMPMHistoryDataPart1RefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelPLOAMPMHistoryDataPart1Impl, &OmciHardwareIfc::refreshTwdmPloamPm>>
{
public:
    using OmciMeTWDMChannelPLOAMPMHistoryDataPart1RefreshedCounters::
        OmciMeTWDMChannelPLOAMPMHistoryDataPart1RefreshedCounters;
};

#endif
