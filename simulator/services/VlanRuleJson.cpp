#include "services/VlanRuleJson.h"

namespace services {
namespace {
constexpr unsigned char kNoTag = 15;
constexpr unsigned char kDefaultRule = 14;
constexpr unsigned char kDiscard = 3;

Json filterOf(unsigned char priority, unsigned short vid, unsigned char tpidDe)
{
    constexpr unsigned char anyPriority = 8;
    constexpr unsigned short anyVid = 4096;
    Json filter = Json::object();
    if (priority == kDefaultRule) {
        filter["default"] = true;
    } else if (priority != anyPriority) {
        filter["priority"] = priority;
    }
    if (vid != anyVid) {
        filter["vid"] = vid;
    }
    if (tpidDe != 0) {
        filter["tpid_de"] = tpidDe;
    }
    return filter;
}

Json addedPriority(unsigned char priority)
{
    switch (priority) {
    case 8:
        return "inner";
    case 9:
        return "outer";
    case 10:
        return "dscp";
    default:
        return priority;
    }
}

Json addedVid(unsigned short vid)
{
    switch (vid) {
    case 4096:
        return "inner";
    case 4097:
        return "outer";
    default:
        return vid;
    }
}

Json tagOf(unsigned char priority, unsigned short vid, unsigned char tpidDe)
{
    return {{"vid", addedVid(vid)}, {"priority", addedPriority(priority)}, {"tpid_de", tpidDe}};
}

Json etherTypeOf(unsigned char code)
{
    constexpr const char* names[] = {"any", "IPv4", "PPPoE", "ARP", "IPv6", "EAPOL"};
    if (code < std::size(names)) {
        return names[code];
    }
    return code;
}

void addTreatment(Json& json, const RecVlanTagFilData& rule)
{
    if (rule.TTR == kDiscard) {
        json["discard"] = true;
        return;
    }
    json["remove"] = rule.TTR;
    if (rule.TOP != kNoTag) {
        json["add_outer"] = tagOf(rule.TOP, rule.TOV, rule.TOT);
    }
    if (rule.TIP != kNoTag) {
        json["add_inner"] = tagOf(rule.TIP, rule.TIV, rule.TIT);
    }
}
}  // namespace

Json toJson(const RecVlanTagFilData& rule)
{
    Json json = Json::object();
    const bool hasInner = rule.FIP != kNoTag;
    const bool hasOuter = hasInner && rule.FOP != kNoTag;
    json["tags"] = static_cast<int>(hasInner) + static_cast<int>(hasOuter);
    if (hasOuter) {
        json["outer"] = filterOf(rule.FOP, rule.FOV, rule.FOT);
    }
    if (hasInner) {
        json["inner"] = filterOf(rule.FIP, rule.FIV, rule.FIT);
    }
    if (rule.FET != 0) {
        json["ethertype"] = etherTypeOf(rule.FET);
    }
    addTreatment(json, rule);
    return json;
}

}  // namespace services
