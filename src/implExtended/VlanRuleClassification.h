#ifndef NRVK_IMPL_EXTENDED_VLAN_RULE_CLASSIFICATION_H
#define NRVK_IMPL_EXTENDED_VLAN_RULE_CLASSIFICATION_H

#include "VlanRecords.h"

namespace nrvk {

/// Bits of ExtendedVlanTaggingRuleContainer::ruleFlags.
enum VlanRuleFlag : unsigned int
{
    VLAN_RULE_FILTERS_OUTER_TAG = 0x1,
    VLAN_RULE_FILTERS_OUTER_VID = 0x2,
    VLAN_RULE_FILTERS_INNER_TAG = 0x4,
    VLAN_RULE_FILTERS_INNER_VID = 0x8,
    VLAN_RULE_ANY_OUTER_TPID = 0x10,
    VLAN_RULE_ANY_INNER_TPID = 0x20,
    VLAN_RULE_FILTERS_ETHERTYPE = 0x40,
    VLAN_RULE_ADDS_OUTER_TAG = 0x80,
    VLAN_RULE_TREATS_OUTER_VID = 0x100,
    VLAN_RULE_TREATS_OUTER_TPID = 0x200,
    VLAN_RULE_ADDS_INNER_TAG = 0x400,
    VLAN_RULE_TREATS_INNER_VID = 0x800,
    VLAN_RULE_TREATS_INNER_TPID = 0x1000,
    VLAN_RULE_PRIORITY_FROM_DSCP = 0x2000,
    VLAN_RULE_UNSET_FRAME = 0x4000,
};

/// The flags that hold for the rule.
unsigned int vlanRuleFlags(const RecVlanTagFilData& rule);

/// Tags of the frames that the filter takes: 0 untagged, 1 single tagged, 2 double tagged.
unsigned short vlanFrameTagCount(const RecVlanTagFilData& rule);

/// The hardware layer's tag action, 0 to 6, for frames with that many tags, of which `tagsToRemove` (0 to 3) go.
unsigned short vlanTagAction(unsigned int frameTagCount, unsigned int tagsToRemove, bool addsOuterTag,
                             bool addsInnerTag);

/// Writes the rule, widened, its tag count, action and flags into the container. Flags are only ever added.
void classifyVlanRule(const RecVlanTagFilData& rule, ExtendedVlanTaggingRuleContainer& container);

/// 24 bytes as 48 lower-case hexadecimal characters and a zero. The hardware layer reads a blank, not a zero, in front
/// of a byte below 0x10.
void dscpMappingText(const unsigned char* mapping, char (&text)[49]);

}  // namespace nrvk

#endif
