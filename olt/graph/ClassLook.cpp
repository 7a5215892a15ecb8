#include "graph/ClassLook.h"

#include <algorithm>

#include "model/Value.h"

namespace olt {

namespace {

constexpr auto kEach = Showing::Each;
constexpr auto kIfUsed = Showing::IfUsed;
constexpr auto kListed = Showing::ListedIfUnused;
constexpr bool kAttached = true;
constexpr bool kOwnPlace = false;

const std::vector<ClassLook>& looks()
{
    using Layer = GraphLayer;
    using Kind = NodeKind;
    static const std::vector<ClassLook> all{
        {11,
         "Ethernet UNI",
         Layer::Uni,
         Kind::Uni,
         kListed,
         kOwnPlace,
         {{"AdministrativeState", ""}, {"OperationalState", ""}}},
        {53, "POTS UNI", Layer::Uni, Kind::Uni, kIfUsed, kOwnPlace, {{"AdministrativeState", ""}}},
        {82, "Video UNI", Layer::Uni, Kind::Uni, kIfUsed, kOwnPlace, {{"AdministrativeState", ""}}},
        {134, "IP host", Layer::Uni, Kind::Uni, kIfUsed, kOwnPlace, {{"IpAddress", ""}}},
        {347, "IPv6 host", Layer::Uni, Kind::Uni, kIfUsed, kOwnPlace, {}},
        {329,
         "VEIP",
         Layer::Uni,
         Kind::Uni,
         kListed,
         kOwnPlace,
         {{"AdministrativeState", ""}, {"OperationalState", ""}}},
        {45, "Bridge", Layer::Bridge, Kind::Bridge, kEach, kOwnPlace, {}},
        {47, "Bridge port", Layer::UniSidePort, Kind::Bridge, kEach, kOwnPlace, {{"PortNum", "port "}}},
        {84,
         "VLAN filter",
         Layer::UniSidePort,
         Kind::Vlan,
         kEach,
         kAttached,
         {{"VlanFilterList", ""}, {"ForwardOperation", "forward operation "}}},
        {171,
         "VLAN tagging",
         Layer::UniSidePort,
         Kind::Vlan,
         kEach,
         kAttached,
         {{"ReceivedFrameVlanTaggingOperationTable", ""}}},
        {298, "Rate limiter", Layer::Bridge, Kind::Bridge, kEach, kAttached, {}},
        {310, "Multicast subscriber", Layer::UniSidePort, Kind::Multicast, kEach, kAttached, {}},
        {309, "Multicast profile", Layer::UniSidePort, Kind::Multicast, kEach, kAttached, {{"IgmpVersion", "IGMP "}}},
        {130, "Mapper", Layer::Mapper, Kind::Mapper, kEach, kOwnPlace, {}},
        {266, "GEM interworking TP", Layer::InterworkingTp, Kind::Gem, kEach, kOwnPlace, {{"OperationalState", ""}}},
        {281, "Multicast GEM TP", Layer::InterworkingTp, Kind::Multicast, kEach, kOwnPlace, {}},
        {268, "GEM port", Layer::GemPort, Kind::Gem, kEach, kOwnPlace, {{"PortId", "port-ID "}}},
        {277, "Queue", Layer::Queue, Kind::TCont, kIfUsed, kOwnPlace, {}},
        {278, "Scheduler", Layer::Scheduler, Kind::TCont, kIfUsed, kOwnPlace, {}},
        {262, "T-CONT", Layer::TCont, Kind::TCont, kIfUsed, kOwnPlace, {}},
    };
    return all;
}

/// "locked" of "1 (locked)": a picture has no room for both.
std::string wordOf(const std::string& text)
{
    const auto open = text.find(" (");
    const bool isState =
        open != std::string::npos && text.back() == ')' && text.find_first_not_of("0123456789") == open;
    return isState ? text.substr(open + 2, text.size() - open - 3) : text;
}

std::string attributeText(const MibEntity& entity, const char* attribute)
{
    for (const auto& [number, value] : entity.values) {
        const auto* const found =
            entity.entityClass->attributeOfMask(static_cast<std::uint16_t>(0x8000U >> (number - 1)));
        if (found && found->name == attribute)
            return wordOf(formatValue(*found, value));
    }
    return "";
}

std::string direction(std::uint64_t code)
{
    return code == 1 ? "upstream" : code == 2 ? "downstream" : code == 3 ? "both directions" : "";
}

std::string queueText(const MibEntity& entity, const Mib& mib)
{
    const auto related = numberOf(entity, "RelatedPort").value_or(0);
    const auto instance = static_cast<std::uint16_t>(related >> 16);
    std::string priority = "priority " + std::to_string(related & 0xFFFF);
    const bool isUpstream = (entity.instance & 0x8000) != 0;
    const std::vector<std::uint16_t> owners =
        isUpstream ? std::vector<std::uint16_t>{262} : std::vector<std::uint16_t>{11, 329, 53, 82};
    for (const std::uint16_t id : owners) {
        if (mib.entities().count({id, instance}) != 0)
            return priority + " of " + titleOf({id, instance});
    }
    return priority;
}

}  // namespace

const ClassLook* lookOf(std::uint16_t entityClass)
{
    const auto found = std::find_if(looks().begin(), looks().end(),
                                    [entityClass](const auto& look) { return look.entityClass == entityClass; });
    return found == looks().end() ? nullptr : &*found;
}

std::string titleOf(Mib::Key key)
{
    const ClassLook* const look = lookOf(key.first);
    return (look ? look->title : "class " + std::to_string(key.first)) + std::string(" ") + std::to_string(key.second);
}

std::vector<std::string> detailsOf(const MibEntity& entity, const Mib& mib)
{
    const std::uint16_t id = entity.entityClass->id;
    std::vector<std::string> details;
    if (id == 277)
        details.push_back(queueText(entity, mib));
    if (id == 262) {
        const auto alloc = numberOf(entity, "AllocId").value_or(0xFFFF);
        details.push_back(alloc == 0xFFFF || alloc == 0xFF ? "no alloc-ID" : "alloc-ID " + std::to_string(alloc));
    }
    const ClassLook* const look = lookOf(id);
    for (const auto& [attribute, before] : look->details) {
        const std::string text = attributeText(entity, attribute);
        if (!text.empty() && text.rfind("all zero", 0) != 0)
            details.push_back(before + text);
    }
    if (id == 268) {
        const std::string way = direction(numberOf(entity, "Direction").value_or(0));
        if (!way.empty())
            details.push_back(way);
    }
    return details;
}

}  // namespace olt
