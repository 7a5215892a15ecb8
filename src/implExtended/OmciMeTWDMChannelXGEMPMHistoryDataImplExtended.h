#ifndef NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELXGEMPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMETWDMCHANNELXGEMPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeTWDMChannelXGEMPMHistoryDataRefreshedCounters.h"
#include "implExtended/PerformanceMonitoring.h"

/// TWDM channel XGEM performance monitoring history data (class 65407): its feed brings the interval end time along.
class OmciMeTWDMChannelXGEMPMHistoryDataImplExtended
    : public OmciMeTWDMChannelXGEMPMHistoryDataRefreshedCounters<
          nrvk::TwdmPm<OmciMeTWDMChannelXGEMPMHistoryDataImpl, &OmciHardwareIfc::refreshTwdmXgemPm>>
{
public:
    using OmciMeTWDMChannelXGEMPMHistoryDataRefreshedCounters::OmciMeTWDMChannelXGEMPMHistoryDataRefreshedCounters;
};

#endif
