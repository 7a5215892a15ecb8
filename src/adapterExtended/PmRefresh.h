#ifndef NRVK_ADAPTER_EXTENDED_PM_REFRESH_H
#define NRVK_ADAPTER_EXTENDED_PM_REFRESH_H

#include "attributeDefinition.h"

/// What the adapters of PM entities ask the hardware layer for before they read the store. The answer comes through the
/// update entries of OmciManagedEntitiesCore before the call returns.
namespace nrvk {

/// Tells the hardware layer which values a read wants.
enum StatsAction : unsigned int
{
    STATS_NONE = 0,     ///< an action that refreshes nothing
    STATS_CURRENT = 1,  ///< get current data: the interval that is running
    STATS_HISTORY = 2,  ///< Get: the interval that ended last
};

StatsAction statsActionOf(EnumOmciAction action);

/// `instance` as the hardware layer knows it: the entity's, or that of its UNI.
void refreshEthernetPm(unsigned short classId, unsigned short instance, EnumOmciAction action);

void refreshFecPm(unsigned short instance, EnumOmciAction action);

/// By the port id of the GEM port network CTP with the same instance id; -1 when there is none, or it has no port id
/// yet.
int refreshGemPortPm(unsigned short classId, unsigned short instance, EnumOmciAction action);

/// By the Ethernet UNI of the bridge port with the same instance id; -1 when there is none, or its TP is another.
int refreshBridgePortPm(unsigned short classId, unsigned short instance, EnumOmciAction action);

}  // namespace nrvk

#endif
