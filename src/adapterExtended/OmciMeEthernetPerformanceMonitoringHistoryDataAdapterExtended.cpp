#include "adapterExtended/OmciMeEthernetPerformanceMonitoringHistoryDataAdapterExtended.h"

#include "adapterExtended/PmRefresh.h"

int OmciMeEthernetPerformanceMonitoringHistoryDataAdapterExtended::getAttribute(unsigned short instance,
                                                                                const attributeDefinition* definition,
                                                                                unsigned char* buffer,
                                                                                EnumOmciAction action) const
{
    nrvk::refreshEthernetPm(description().entity.classId, instance, action);
    return OmciMeEthernetPerformanceMonitoringHistoryDataAdapter::getAttribute(instance, definition, buffer, action);
}
