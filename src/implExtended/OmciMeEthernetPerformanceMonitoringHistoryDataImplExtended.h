#ifndef NRVK_IMPL_EXTENDED_OMCIMEETHERNETPERFORMANCEMONITORINGHISTORYDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEETHERNETPERFORMANCEMONITORINGHISTORYDATAIMPLEXTENDED_H

#include "impl/OmciMeEthernetPerformanceMonitoringHistoryDataImpl.h"
#include "implExtended/PerformanceMonitoring.h"

/// Ethernet performance monitoring history data (G.988 9.5.2, class 24): errors and collisions of an Ethernet UNI,
/// whose id it has.
class OmciMeEthernetPerformanceMonitoringHistoryDataImplExtended
    : public nrvk::PmHistory<OmciMeEthernetPerformanceMonitoringHistoryDataImpl>
{
public:
    using LoggedHooks::LoggedHooks;
};

#endif
