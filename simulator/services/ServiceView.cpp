#include "services/ServiceView.h"

#include <algorithm>

#include "services/VlanRuleJson.h"

namespace services {
namespace {
constexpr unsigned char kDownstream = 2;

/// GEM ports on their way to JSON, and what was looked for and not found.
struct Found
{
    Json gemPorts = Json::array();
    Json missing = Json::array();

    void miss(const std::string& what, unsigned short instance)
    {
        const std::string text = what + ' ' + std::to_string(instance);
        if (std::find(missing.begin(), missing.end(), text) == missing.end()) {
            missing.push_back(text);
        }
    }
    void take(const Found& other, std::optional<unsigned short> viaPort)
    {
        for (Json gemPort : other.gemPorts) {
            if (viaPort) {
                gemPort["via_port"] = *viaPort;
            }
            gemPorts.push_back(std::move(gemPort));
        }
        for (const Json& text : other.missing) {
            if (std::find(missing.begin(), missing.end(), text) == missing.end()) {
                missing.push_back(text);
            }
        }
    }
};

Json directionOf(unsigned char direction)
{
    switch (direction) {
    case 1:
        return "upstream";
    case kDownstream:
        return "downstream";
    case 3:
        return "both";
    default:
        return direction;
    }
}

Json allPBits()
{
    return {0, 1, 2, 3, 4, 5, 6, 7};
}

class View
{
public:
    explicit View(const Records& records) : m_Records(records) {}

    Json toJson() const
    {
        Json json = Json::object();
        json["ethernet_unis"] = subscriberPorts(m_Records.unis, TP_TYPE_UNI, MAPPER_OF_UNI);
        json["veips"] = subscriberPorts(m_Records.veips, TP_TYPE_VEIP, MAPPER_OF_VEIP);
        Json ports = Json::array();
        for (const auto& [instance, port] : m_Records.ports) {
            ports.push_back(bridgePort(instance, port));
        }
        json["bridge_ports"] = ports;
        return json;
    }

private:
    using Services = std::map<unsigned short, GemService>;

    static void addGemPort(Found& found, const Services& services, unsigned short tp, const Json& pBits,
                           bool isMulticast)
    {
        const auto entry = services.find(tp);
        if (entry == services.end()) {
            found.miss(isMulticast ? "multicast GEM interworking TP" : "GEM interworking TP", tp);
            return;
        }
        const GemService& service = entry->second;
        if (!service.gem) {
            found.miss("GEM port network CTP", service.gemPort);
            return;
        }
        const GemPort& gem = *service.gem;
        Json json = {{"port_id", gem.portId}, {"direction", directionOf(gem.direction)}};
        if (isMulticast) {
            json["multicast"] = true;
        } else {
            json["pbits"] = pBits;
        }
        if (gem.direction != kDownstream) {
            json["t_cont"] = gem.tCont;
            json["alloc_id"] = gem.allocId ? Json(*gem.allocId) : Json(nullptr);
            if (!gem.isTContThere) {
                found.miss("T-CONT", gem.tCont);
            }
        }
        json["unlocked"] = service.isUnlocked;
        json["interworking_tp"] = tp;
        json["gem_port"] = service.gemPort;
        found.gemPorts.push_back(json);
    }

    /// One GEM port for each TP, with all p-bits that lead to it.
    void addMapper(Found& found, unsigned short instance) const
    {
        const auto entry = m_Records.mappers.find(instance);
        if (entry == m_Records.mappers.end()) {
            found.miss("802.1p mapper", instance);
            return;
        }
        std::vector<std::pair<unsigned short, Json>> tps;
        for (std::size_t pBit = 0; pBit < entry->second.tps.size(); ++pBit) {
            const unsigned short tp = entry->second.tps[pBit];
            if (tp == kNoTp) {
                continue;
            }
            auto known = std::find_if(tps.begin(), tps.end(), [tp](const auto& other) { return other.first == tp; });
            if (known == tps.end()) {
                known = tps.insert(tps.end(), {tp, Json::array()});
            }
            known->second.push_back(pBit);
        }
        for (const auto& [tp, pBits] : tps) {
            addGemPort(found, m_Records.gems, tp, pBits, false);
        }
    }

    static bool isNetworkSide(const BridgePort& port)
    {
        return port.tpType == TP_TYPE_MAPPER || port.tpType == TP_TYPE_GEM || port.tpType == TP_TYPE_MULTICAST_GEM;
    }

    Found gemPortsBehind(const BridgePort& port) const
    {
        Found found;
        if (port.tpType == TP_TYPE_MAPPER) {
            addMapper(found, port.tpPointer);
        } else {
            const bool isMulticast = port.tpType == TP_TYPE_MULTICAST_GEM;
            addGemPort(found, isMulticast ? m_Records.multicastGems : m_Records.gems, port.tpPointer, allPBits(),
                       isMulticast);
        }
        return found;
    }

    /// A port on the network's side has its own GEM ports, one on the subscriber's side those of its bridge.
    Found gemPortsOf(const BridgePort& port) const
    {
        if (isNetworkSide(port)) {
            return gemPortsBehind(port);
        }
        Found found;
        if (!port.isBridgeThere) {
            found.miss("MAC bridge service profile", port.bridge);
        }
        for (const auto& [instance, other] : m_Records.ports) {
            if (other.bridge == port.bridge && isNetworkSide(other)) {
                found.take(gemPortsBehind(other), instance);
            }
        }
        return found;
    }

    static Json rulesOf(const VlanRules& rules)
    {
        Json json = Json::array();
        for (const RecVlanTagFilData& rule : rules) {
            json.push_back(services::toJson(rule));
        }
        return json;
    }

    static void finish(Json& json, const VlanRules& rules, const Found& found)
    {
        json["vlan_rules"] = rulesOf(rules);
        json["gem_ports"] = found.gemPorts;
        if (!found.missing.empty()) {
            json["missing"] = found.missing;
        }
    }

    Json subscriberPorts(const std::map<unsigned short, SubscriberPort>& all, unsigned char tpType,
                         unsigned char mapperTpType) const
    {
        Json json = Json::array();
        for (const auto& [instance, subscriberPort] : all) {
            Json ports = Json::array();
            Found found;
            for (const auto& [number, port] : m_Records.ports) {
                if (port.tpType == tpType && port.tpPointer == instance) {
                    ports.push_back(number);
                    found.take(gemPortsOf(port), std::nullopt);
                }
            }
            for (const auto& [number, mapper] : m_Records.mappers) {
                if (mapper.tpType == mapperTpType && mapper.tpPointer == instance) {
                    addMapper(found, number);
                }
            }
            Json entry = {{"instance", instance},
                          {"unlocked", subscriberPort.isUnlocked},
                          {"provisioned", subscriberPort.isProvisioned},
                          {"bridge_ports", ports}};
            finish(entry, subscriberPort.rules, found);
            json.push_back(entry);
        }
        return json;
    }

    bool isUnlocked(const BridgePort& port) const
    {
        const auto& all = port.tpType == TP_TYPE_VEIP ? m_Records.veips : m_Records.unis;
        if (port.tpType != TP_TYPE_UNI && port.tpType != TP_TYPE_VEIP) {
            return true;
        }
        const auto found = all.find(port.tpPointer);
        return found != all.end() && found->second.isUnlocked;
    }

    Json bridgePort(unsigned short instance, const BridgePort& port) const
    {
        Json entry = {{"instance", instance},
                      {"bridge", port.bridge},
                      {"tp_type", port.tpType},
                      {"tp_pointer", port.tpPointer},
                      {"unlocked", isUnlocked(port)}};
        if (port.filter) {
            entry["vlan_filter"] = {{"forward_operation", port.filter->forwardOperation}, {"tcis", port.filter->tcis}};
        }
        if (const auto mapper = m_Records.mappers.find(port.tpPointer);
            port.tpType == TP_TYPE_MAPPER && mapper != m_Records.mappers.end()) {
            // The option's 0 derives the p-bit from the DSCP.
            entry["untagged_pbit"] =
                mapper->second.unmarkedFrameOption == 0 ? Json("dscp") : Json(mapper->second.defaultPBit);
        }
        finish(entry, port.rules, gemPortsOf(port));
        return entry;
    }

    const Records& m_Records;
};

std::string gemPortText(const Json& gemPort)
{
    std::string text = "GEM port " + std::to_string(gemPort["port_id"].get<int>()) + " (";
    if (gemPort.contains("multicast")) {
        text += "multicast";
    } else {
        text += gemPort["pbits"] == allPBits() ? "p-bits 0 to 7" : "p-bits " + gemPort["pbits"].dump();
    }
    if (gemPort.contains("t_cont")) {
        const Json& allocId = gemPort["alloc_id"];
        text += ", T-CONT " + std::to_string(gemPort["t_cont"].get<int>()) + " alloc-ID " +
                (allocId.is_null() ? std::string("none") : std::to_string(allocId.get<int>()));
    }
    const Json& direction = gemPort["direction"];
    text += ", direction " + (direction.is_string() ? direction.get<std::string>() : direction.dump());
    return text + (gemPort["unlocked"] == true ? ")" : ", locked)");
}

std::string lineOf(const Json& port)
{
    std::string text = port["unlocked"] == true ? "unlocked" : "locked";
    if (port.contains("provisioned") && port["provisioned"] == false) {
        text += ", not provisioned";
    }
    text += ", VLAN rules " + std::to_string(port["vlan_rules"].size());
    if (port.contains("vlan_filter")) {
        text += ", VLAN filter of " + std::to_string(port["vlan_filter"]["tcis"].size());
    }
    for (const Json& gemPort : port["gem_ports"]) {
        text += ", " + gemPortText(gemPort);
    }
    if (port.contains("missing")) {
        for (const Json& what : port["missing"]) {
            text += ", missing " + what.get<std::string>();
        }
    }
    return text;
}
}  // namespace

Json toJson(const Records& records)
{
    return View(records).toJson();
}

std::map<std::string, PortLine> linesOf(const Json& services)
{
    constexpr std::pair<const char*, const char*> kinds[] = {
        {"ethernet_unis", "Ethernet UNI "}, {"veips", "VEIP "}, {"bridge_ports", "Bridge port "}};
    std::map<std::string, PortLine> lines;
    for (const auto& [key, name] : kinds) {
        for (const Json& port : services[key]) {
            lines[name + std::to_string(port["instance"].get<int>())] = {lineOf(port), port.dump()};
        }
    }
    return lines;
}

}  // namespace services
