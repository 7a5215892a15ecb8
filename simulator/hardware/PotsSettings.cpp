#include "hardware/PotsSettings.h"

#include <algorithm>
#include <iterator>

#include "JsonValues.h"

namespace {
/// By the call's number.
constexpr const char* kCallNames[] = {
    "idle",       "dial-tone", "dialling",      "ringing",           "ringback",
    "connecting", "connected", "disconnecting", "receiver-off-hook", "receiver-off-hook-tone"};

constexpr unsigned char kLastSession = 5;
constexpr unsigned char kLastServerStatus = 15;

PotsSettings::Call callOf(const Json& json, const std::string& what)
{
    std::string name;
    values::from(json, name, what);
    const auto* const found = std::find(std::begin(kCallNames), std::end(kCallNames), name);
    if (found == std::end(kCallNames)) {
        std::string known;
        for (const char* call : kCallNames) {
            known += (known.empty() ? "" : ", ") + std::string(call);
        }
        throw BadRequest(what + ": there is no call state \"" + name + "\"; there are " + known);
    }
    return static_cast<PotsSettings::Call>(found - std::begin(kCallNames));
}

unsigned char numberUpTo(const Json& json, unsigned char highest, const std::string& what)
{
    return static_cast<unsigned char>(values::unsignedNumber(json, highest, what));
}
}  // namespace

const char* PotsSettings::callName() const
{
    return kCallNames[static_cast<unsigned char>(call)];
}

void PotsSettings::lift()
{
    if (call == Call::Idle) {
        call = Call::DialTone;
    } else if (call == Call::Ringing) {
        call = Call::Connected;
    }
}

void PotsSettings::apply(const Json& json, const std::string& what)
{
    if (!json.is_object()) {
        throw BadRequest(what + " is not an object");
    }
    std::optional<bool> offHook;
    bool hasCall = false;
    for (const auto& [key, value] : json.items()) {
        const std::string where = what + "." + key;
        if (key == "hook") {
            offHook = numberUpTo(value, 1, where) != 0;
        } else if (key == "call") {
            call = callOf(value, where);
            hasCall = true;
        } else if (key == "oper") {
            operationalState = numberUpTo(value, 1, where);
        } else if (key == "session") {
            session = numberUpTo(value, kLastSession, where);
        } else if (key == "server") {
            server = numberUpTo(value, kLastServerStatus, where);
        } else if (key == "emergency") {
            values::from(value, isEmergency, where);
        } else {
            throw BadRequest(what + " has no field \"" + key +
                             "\"; there are hook, call, oper, session, server and emergency");
        }
    }
    if (!offHook) {
        return;
    }
    if (hasCall && *offHook != isOffHook()) {
        throw BadRequest(what + ": a phone whose call is \"" + callName() + "\" is " +
                         (isOffHook() ? "off the hook (1)" : "on the hook (0)"));
    }
    if (*offHook) {
        lift();
    } else if (isOffHook()) {
        call = Call::Idle;
    }
}
