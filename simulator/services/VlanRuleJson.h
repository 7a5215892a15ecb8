#ifndef SIMULATOR_SERVICES_VLAN_RULE_JSON_H
#define SIMULATOR_SERVICES_VLAN_RULE_JSON_H

#include "Json.h"
#include "VlanRecords.h"

namespace services {

/// A VLAN tagging rule (G.988 9.3.13) as a reader thinks of it. "tags" of the frames it is for; of each filtered tag
/// what is asked for, under "outer" and "inner"; then "discard", or how many tags to "remove" and what to add, under
/// "add_outer" and "add_inner". What does not filter is left out; a VID or priority that is copied is named by the tag
/// that it comes from.
Json toJson(const RecVlanTagFilData& rule);

}  // namespace services

#endif
