#ifndef NRVK_IMPL_EXTENDED_OMCIMEGEMPORTPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEGEMPORTPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeGemPortPMHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// GEM port performance monitoring history data (class 267): packets of the GEM port network CTP whose id it has.
class OmciMeGemPortPMHistoryDataImplExtended
    : public nrvk::FinishedIntervalEndTime<nrvk::PmHistory<OmciMeGemPortPMHistoryDataImpl>>
{
public:
    using FinishedIntervalEndTime::FinishedIntervalEndTime;
};

#endif
