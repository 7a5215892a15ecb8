#ifndef ONT_OMCI_MANAGED_ENTITY_EXTENDED_VLAN_TAGGING_ACCESS_H
#define ONT_OMCI_MANAGED_ENTITY_EXTENDED_VLAN_TAGGING_ACCESS_H

#include <vector>

#include "Export.h"
#include "VlanRecords.h"

class OmciMeExtendedVlanTaggingOperationConfigurationDataIf;

/// What the hardware layer asks an extended VLAN tagging operation configuration data entity (G.988 9.3.13, class 171)
/// for, besides its attributes. To be called while OmciHardwareIfc::provisionUniService or provisionBridgePort runs, on
/// its thread; the entity is found in its store by the associated entity.
namespace nrvk {

/// Copies the newest rule of the table of received frames, decoded. Logs and copies nothing when `out` is null or the
/// table is empty.
NRVK_EXPORT void getRecVlanTagFilData(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity,
                                      RecVlanTagFilData* out);

/// Fills `container` with the row that was written last: its fields, frame tag count, tag action, rule flags (added to
/// those already there), TPIDs, downstream mode and DSCP mapping. 1, or 0 with the container untouched when it is null
/// or no row stands.
NRVK_EXPORT int
parseReceivedFrameVlanTaggingOperationTable(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity,
                                            ExtendedVlanTaggingRuleContainer* container);

/// Turns a rule into an EVC and an EVC map and hands them to OmciHardwareIfc::provisionEvcAndEvcMap, with `request`
/// passed through. Its result, or 0 for a rule that makes no EVC.
NRVK_EXPORT unsigned int sendEvcAndEvcMapToTmb(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity,
                                               const RecVlanTagFilData& frame, bool request);

/// All rules of the table of received frames, in order of arrival.
NRVK_EXPORT std::vector<RecVlanTagFilData>
getTableOfReceivedFrames(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity);

/// The library's own count of those rules. It has 8 bits and wraps: with 257 rules it is 1.
NRVK_EXPORT unsigned char getRuleCount(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity);

/// Empties the table of received frames. False, with the table intact, when the hardware interface is not set.
NRVK_EXPORT bool
deleteAllEntriesFromTableOfReceivedFrames(OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity);

}  // namespace nrvk

#endif
