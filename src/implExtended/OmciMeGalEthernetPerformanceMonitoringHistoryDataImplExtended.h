#ifndef NRVK_IMPL_EXTENDED_OMCIMEGALETHERNETPERFORMANCEMONITORINGHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEGALETHERNETPERFORMANCEMONITORINGHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeGalEthernetPerformanceMonitoringHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// GAL Ethernet performance monitoring history data (G.988 9.2.8, class 276): its one counter is refreshed at each
/// read.
class OmciMeGalEthernetPerformanceMonitoringHistoryDataImplExtended
    : public nrvk::RegisteredPm<OmciMeGalEthernetPerformanceMonitoringHistoryDataImpl>
{
public:
    using RegisteredPm::RegisteredPm;

    unsigned int getDiscardedFrames(EnumOmciAction action) const override;
};

#endif
