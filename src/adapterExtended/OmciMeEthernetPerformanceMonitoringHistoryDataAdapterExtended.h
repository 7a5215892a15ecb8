#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETPERFORMANCEMONITORINGHISTORYDATAADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEETHERNETPERFORMANCEMONITORINGHISTORYDATAADAPTEREXTENDED_H

#include "adapter/OmciMeEthernetPerformanceMonitoringHistoryDataAdapter.h"
#include "adapterExtended/PmAdapter.h"

/// Ethernet performance monitoring history data (G.988 9.5.2, class 24): the hardware layer is asked at each attribute.
class OmciMeEthernetPerformanceMonitoringHistoryDataAdapterExtended
    : public nrvk::PmAdapter<OmciMeEthernetPerformanceMonitoringHistoryDataAdapter>
{
public:
    int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override;
};

#endif
