#include "implExtended/VlanRuleClassification.h"

#include "implExtended/VlanTaggingRow.h"

namespace nrvk {

namespace {

/// A filter VID counts below this, a treatment VID below the other: deliberately not the same.
constexpr unsigned short kFilterVidLimit = 0xFFF;
constexpr unsigned short kTreatmentVidLimit = 0x1002;
constexpr unsigned char kAnyTpid = 0;
constexpr unsigned char kOutputTpidWithDeiOfFrame = 5;
constexpr unsigned char kPriorityFromDscp = 10;

constexpr unsigned short kTagActions[3][4][4] = {
    // tags added: none, inner, outer, both
    {{0, 1, 0, 4}, {0, 0, 0, 1}, {0, 0, 0, 0}, {0, 1, 0, 4}},  // untagged, remove 0 to 3
    {{0, 1, 0, 1}, {2, 3, 2, 1}, {2, 2, 2, 3}, {0, 1, 0, 1}},  // single tagged
    {{0, 0, 0, 0}, {2, 6, 2, 6}, {5, 2, 5, 6}, {0, 0, 0, 0}},  // double tagged
};

}  // namespace

unsigned int vlanRuleFlags(const RecVlanTagFilData& rule)
{
    const bool outerTag = rule.FOP != kNoVlanTag;
    const bool innerTag = rule.FIP != kNoVlanTag;
    const struct
    {
        VlanRuleFlag flag;
        bool holds;
    } conditions[] = {
        {VLAN_RULE_FILTERS_OUTER_TAG, outerTag},
        {VLAN_RULE_FILTERS_OUTER_VID, outerTag && rule.FOV < kFilterVidLimit},
        {VLAN_RULE_FILTERS_INNER_TAG, innerTag},
        {VLAN_RULE_FILTERS_INNER_VID, innerTag && rule.FIV < kFilterVidLimit},
        {VLAN_RULE_ANY_OUTER_TPID, rule.FOT == kAnyTpid},
        {VLAN_RULE_ANY_INNER_TPID, rule.FIT == kAnyTpid},
        {VLAN_RULE_FILTERS_ETHERTYPE, rule.FET != 0},
        {VLAN_RULE_ADDS_OUTER_TAG, rule.TOP != kNoVlanTag},
        {VLAN_RULE_TREATS_OUTER_VID, rule.TOV < kTreatmentVidLimit},
        {VLAN_RULE_TREATS_OUTER_TPID, rule.TOT != kOutputTpidWithDeiOfFrame},
        {VLAN_RULE_ADDS_INNER_TAG, rule.TIP != kNoVlanTag},
        {VLAN_RULE_TREATS_INNER_VID, rule.TIV < kTreatmentVidLimit},
        {VLAN_RULE_TREATS_INNER_TPID, rule.TIT != kOutputTpidWithDeiOfFrame},
        {VLAN_RULE_PRIORITY_FROM_DSCP, rule.TOP == kPriorityFromDscp || rule.TIP == kPriorityFromDscp},
        {VLAN_RULE_UNSET_FRAME, isUnsetFrame(rule)},
    };
    unsigned int flags = 0;
    for (const auto& condition : conditions) {
        flags |= condition.holds ? condition.flag : 0U;
    }
    return flags;
}

unsigned short vlanFrameTagCount(const RecVlanTagFilData& rule)
{
    if (rule.FIP == kNoVlanTag) {
        return 0;
    }
    return rule.FOP == kNoVlanTag ? 1 : 2;
}

unsigned short vlanTagAction(unsigned int frameTagCount, unsigned int tagsToRemove, bool addsOuterTag,
                             bool addsInnerTag)
{
    return kTagActions[frameTagCount][tagsToRemove][(addsOuterTag ? 2 : 0) + (addsInnerTag ? 1 : 0)];
}

void classifyVlanRule(const RecVlanTagFilData& rule, ExtendedVlanTaggingRuleContainer& container)
{
    container.FET = rule.FET;
    container.FOT = rule.FOT;
    container.FOV = rule.FOV;
    container.FOP = rule.FOP;
    container.FIT = rule.FIT;
    container.FIV = rule.FIV;
    container.FIP = rule.FIP;
    container.TTR = rule.TTR;
    container.TOT = rule.TOT;
    container.TOV = rule.TOV;
    container.TOP = rule.TOP;
    container.TIT = rule.TIT;
    container.TIV = rule.TIV;
    container.TIP = rule.TIP;
    container.frameTagCount = vlanFrameTagCount(rule);
    container.tagAction =
        vlanTagAction(container.frameTagCount, rule.TTR, rule.TOP != kNoVlanTag, rule.TIP != kNoVlanTag);
    container.ruleFlags |= vlanRuleFlags(rule);
}

void dscpMappingText(const unsigned char* mapping, char (&text)[49])
{
    static constexpr char digits[] = "0123456789abcdef";
    constexpr unsigned int bytes = 24;
    for (unsigned int i = 0; i < bytes; ++i) {
        const unsigned char byte = mapping[i];
        text[2 * i] = byte < 0x10 ? ' ' : digits[byte >> 4];
        text[2 * i + 1] = digits[byte & 0xF];
    }
    text[2 * bytes] = '\0';
}

}  // namespace nrvk
