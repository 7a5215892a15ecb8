#ifndef OLT_SESSION_VLAN_TABLE_H
#define OLT_SESSION_VLAN_TABLE_H

#include "session/Operations.h"

namespace olt {

/// The VLAN tagging operation table of an entity of class 171: `attribute` is of the form VlanRow. Throws what
/// readTable throws.
[[nodiscard]] TableContents readVlanTable(Session& session, const EntityId& entity, const Attribute& attribute);

}  // namespace olt

#endif
