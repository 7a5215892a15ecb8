#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELOMCIPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELOMCIPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelOMCIPMHistoryDataRefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel OMCI performance monitoring history data (class 65414): its feed brings the interval end time along.
class OmciMeTWDMChannelOMCIPMHistoryDataImplExtended
    : public OmciMeTWDMChannelOMCIPMHistoryDataRefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelOMCIPMHistoryDataImpl, &OmciHardwareIfc::refreshTwdmOmciPm>>
{
public:
    using OmciMeTWDMChannelOMCIPMHistoryDataRefreshedCounters::OmciMeTWDMChannelOMCIPMHistoryDataRefreshedCounters;
};

#endif
