#include "implExtended/EvcMapping.h"

#include "implExtended/VlanTaggingRow.h"

namespace nrvk {

namespace {

struct EvcVlans
{
    unsigned short namedBy;
    unsigned short evc;
    unsigned short match;
};

/// An EVC is named after the VLAN that the frame leaves with. Only a rule that treats one tag and adds nothing outside
/// of it matches on the received VLAN.
std::optional<EvcVlans> evcVlansOf(const RecVlanTagFilData& rule)
{
    const bool addsOuterTag = rule.TOP != kNoVlanTag;
    const bool addsInnerTag = rule.TIP != kNoVlanTag;
    if (rule.FOP == kNoVlanTag && rule.FIP == kNoVlanTag) {
        if (!addsOuterTag && !addsInnerTag) {
            return EvcVlans{rule.TOV, kNoVlan, kNoVlan};
        }
        return EvcVlans{rule.TIV, rule.TIV, kNoVlan};
    }
    if (!addsInnerTag) {
        return std::nullopt;
    }
    if (addsOuterTag) {
        return EvcVlans{rule.TOV, rule.TOV, kNoVlan};
    }
    return EvcVlans{rule.TIV, rule.TIV, rule.FIV};
}

}  // namespace

std::optional<EvcAndEvcMap> evcAndEvcMapOf(const RecVlanTagFilData& rule)
{
    const auto vlans = evcVlansOf(rule);
    if (!vlans) {
        return std::nullopt;
    }
    EvcAndEvcMap evc;
    evc.evcName = "OMCI_" + std::to_string(vlans->namedBy);
    evc.evcVlan = vlans->evc;
    evc.evcMapName = "OMCI_" + std::to_string(rule.FIV) + '_' + std::to_string(rule.FIP);
    evc.matchVlan = vlans->match;
    evc.priority = rule.FIP;
    evc.noTagRemoved = rule.TTR == 0;
    return evc;
}

}  // namespace nrvk
