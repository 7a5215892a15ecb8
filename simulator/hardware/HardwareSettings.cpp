#include "hardware/HardwareSettings.h"

#include <functional>

#include "JsonValues.h"
#include "hardware/CounterReports.h"
#include "hardware/HardwareOperations.h"

namespace {
constexpr int kLowestLevel = -32768;
constexpr int kHighestLevel = 65535;

const Json& asObject(const Json& json, const std::string& what)
{
    if (!json.is_object()) {
        throw BadRequest(what + " is not an object");
    }
    return json;
}

/// Calls `visit` with each member of {"NUMBER":value}.
void forEachInstance(const Json& json, const std::string& what,
                     const std::function<void(unsigned short, const Json&, const std::string&)>& visit)
{
    for (const auto& [key, value] : asObject(json, what).items()) {
        const bool isNumber =
            !key.empty() && key.size() <= 5 && key.find_first_not_of("0123456789") == std::string::npos;
        if (!isNumber || std::stoul(key) > 0xFFFF) {
            throw BadRequest(what + ": \"" + key + "\" is not a number from 0 to 65535");
        }
        visit(static_cast<unsigned short>(std::stoul(key)), value, what + "." + key);
    }
}

void applyUni(HardwareSettings::Uni& uni, const Json& json, const std::string& what)
{
    for (const auto& [key, value] : asObject(json, what).items()) {
        if (key == "oper") {
            values::from(value, uni.operationalState, what + ".oper");
        } else if (key == "speed") {
            values::from(value, uni.speed, what + ".speed");
        } else if (key == "duplex") {
            values::from(value, uni.duplex, what + ".duplex");
        } else {
            throw BadRequest(what + " has no field \"" + key + "\"; there are oper, speed and duplex");
        }
    }
}

void applyAni(optics::FixedLevels& ani, const Json& json, const std::string& what)
{
    for (const auto& [key, value] : asObject(json, what).items()) {
        // As the signed level or as its two bytes.
        const auto level = static_cast<unsigned short>(values::signedNumber(value, kLowestLevel, kHighestLevel, what));
        if (key == "rx") {
            ani.received = level;
        } else if (key == "tx") {
            ani.transmitted = level;
        } else {
            throw BadRequest(what + " has no field \"" + key + "\"; there are rx and tx");
        }
    }
}

/// null takes the setting back.
template <typename T>
void applyOptional(std::optional<T>& setting, const Json& json, const std::string& what)
{
    T value{};
    if (!json.is_null()) {
        values::from(json, value, what);
    }
    setting = json.is_null() ? std::nullopt : std::optional<T>(std::move(value));
}

void applySelfTest(std::optional<omci::SelfTestOutcome>& selfTest, const Json& json)
{
    static const std::map<std::string, std::optional<omci::SelfTestOutcome>> outcomes = {
        {"passed", omci::SelfTestOutcome::Passed},
        {"failed", omci::SelfTestOutcome::Failed},
        {"not completed", omci::SelfTestOutcome::NotCompleted},
        {"silent", std::nullopt},
    };
    std::string word;
    values::from(json, word, "self_test");
    const auto outcome = outcomes.find(word);
    if (outcome == outcomes.end()) {
        throw BadRequest("self_test: \"" + word + "\" is none of passed, failed, not completed, silent");
    }
    selfTest = outcome->second;
}

void applyThrowing(std::set<std::string>& throwing, const Json& json)
{
    if (!json.is_array()) {
        throw BadRequest("throw is not an array of operation names");
    }
    throwing.clear();
    for (const Json& name : json) {
        std::string operation;
        values::from(name, operation, "throw");
        if (!isHardwareOperation(operation)) {
            throw BadRequest("throw: the hardware has no operation \"" + operation + "\"");
        }
        throwing.insert(operation);
    }
}

void applyCounters(HardwareSettings& settings, const Json& json)
{
    forEachInstance(
        json, "counters", [&settings](unsigned short classId, const Json& instances, const std::string& what) {
            forEachInstance(instances, what,
                            [&](unsigned short instance, const Json& record, const std::string& where) {
                                settings.setCounters(classId, instance, checkedCounters(classId, record, where));
                            });
        });
}

using Member = std::function<void(HardwareSettings&, const Json&)>;

const std::map<std::string, Member>& members()
{
    static const std::map<std::string, Member> all = {
        {"uni",
         [](HardwareSettings& settings, const Json& json) {
             forEachInstance(json, "uni", [&](unsigned short instance, const Json& value, const std::string& what) {
                 applyUni(settings.unis[instance], value, what);
             });
         }},
        {"ani",
         [](HardwareSettings& settings, const Json& json) {
             forEachInstance(json, "ani", [&](unsigned short instance, const Json& value, const std::string& what) {
                 applyAni(settings.anis[instance], value, what);
             });
         }},
        {"pots",
         [](HardwareSettings& settings, const Json& json) {
             forEachInstance(json, "pots", [&](unsigned short instance, const Json& value, const std::string& what) {
                 settings.phones[instance].apply(value, what);
             });
         }},
        {"dhcp",
         [](HardwareSettings& settings, const Json& json) {
             forEachInstance(json, "dhcp", [&](unsigned short instance, const Json& value, const std::string& what) {
                 settings.dhcpServers.try_emplace(instance, DhcpSettings::forHost(instance))
                     .first->second.apply(value, what);
             });
         }},
        {"answer_refresh", [](HardwareSettings& settings,
                              const Json& json) { values::from(json, settings.answersRefresh, "answer_refresh"); }},
        {"image_valid", [](HardwareSettings& settings,
                           const Json& json) { values::from(json, settings.isImageValid, "image_valid"); }},
        {"self_test", [](HardwareSettings& settings, const Json& json) { applySelfTest(settings.selfTest, json); }},
        {"status_message", [](HardwareSettings& settings,
                              const Json& json) { applyOptional(settings.statusMessage, json, "status_message"); }},
        {"debug_reply",
         [](HardwareSettings& settings, const Json& json) { applyOptional(settings.debugReply, json, "debug_reply"); }},
        {"counters", applyCounters},
        {"throw", [](HardwareSettings& settings, const Json& json) { applyThrowing(settings.throwing, json); }},
        {"delay_ms",
         [](HardwareSettings& settings, const Json& json) {
             settings.delayMilliseconds =
                 static_cast<unsigned int>(values::unsignedNumber(json, HardwareSettings::kLongestDelay, "delay_ms"));
         }},
    };
    return all;
}
}  // namespace

HardwareSettings::Uni HardwareSettings::uni(unsigned short instance) const
{
    const auto found = unis.find(instance);
    return found == unis.end() ? Uni() : found->second;
}

optics::FixedLevels HardwareSettings::ani(unsigned short instance) const
{
    const auto found = anis.find(instance);
    return found == anis.end() ? optics::FixedLevels() : found->second;
}

void HardwareSettings::setCounters(unsigned short classId, unsigned short instance, const Json& record)
{
    counters[counterFamily(classId)][counterInstance(classId, instance)] = record;
}

Json HardwareSettings::countersOf(unsigned short classId, unsigned short instance) const
{
    const auto family = counters.find(counterFamily(classId));
    if (family == counters.end()) {
        return nullptr;
    }
    const auto found = family->second.find(counterInstance(classId, instance));
    return found == family->second.end() ? Json(nullptr) : found->second;
}

void HardwareSettings::apply(const Json& request)
{
    HardwareSettings changed = *this;
    for (const auto& [key, value] : asObject(request, "hardware").items()) {
        const auto member = members().find(key);
        if (member == members().end()) {
            throw BadRequest("hardware has no setting \"" + key + "\"");
        }
        member->second(changed, value);
    }
    *this = changed;
}
