#ifndef OLT_SESSION_VLAN_TABLE_H
#define OLT_SESSION_VLAN_TABLE_H

#include "session/Operations.h"

namespace olt {

/// The VLAN tagging operation table of an entity of class 171.
struct VlanTableContents : TableContents
{
    /// The ONU answers a get with the row that was set last instead of the table's size, and refuses get next.
    bool newestOnly = false;
};

/// `attribute` is of the form VlanRow. Throws what readTable throws.
[[nodiscard]] VlanTableContents readVlanTable(Session& session, const EntityId& entity, const Attribute& attribute);

}  // namespace olt

#endif
