#ifndef NRVK_IMPL_EXTENDED_OMCIMEWATCHDOGPMHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEWATCHDOGPMHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeWatchdogPMHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Watchdog performance monitoring history data (class 65404): a store that only a host writes.
class OmciMeWatchdogPMHistoryDataImplExtended : public nrvk::RegisteredPm<OmciMeWatchdogPMHistoryDataImpl>
{
public:
    using RegisteredPm::RegisteredPm;
};

#endif
