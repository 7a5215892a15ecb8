#include "implExtended/OmciMeGalEthernetPerformanceMonitoringHistoryDataImplExtended.h"

unsigned int
OmciMeGalEthernetPerformanceMonitoringHistoryDataImplExtended::getDiscardedFrames(EnumOmciAction action) const
{
    nrvk::refreshByAction(&OmciHardwareIfc::refreshGalEthernetPm, action, m_ManagedEntityInstance);
    return OmciMeGalEthernetPerformanceMonitoringHistoryDataImpl::getDiscardedFrames(OMCI_ACTION_GET);
}
