#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART3IMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELPLOAMPMHISTORYDATAPART3IMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelPLOAMPMHistoryDataPart3RefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel PLOAM performance monitoring history data part 3 (class 65410): its feed brings the interval end time
/// along.
class OmciMeTWDMChannelPLOAMPMHistoryDataPart3ImplExtended
    : public OmciMeTWDMChannelPLOAMPMHistoryDataPart3RefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelPLOAMPMHistoryDataPart3Impl, &OmciHardwareIfc::refreshTwdmPloamPm>>
{
public:
    using OmciMeTWDMChannelPLOAMPMHistoryDataPart3RefreshedCounters::
        OmciMeTWDMChannelPLOAMPMHistoryDataPart3RefreshedCounters;
};

#endif
