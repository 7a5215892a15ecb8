#include "ClassRules.h"

#include <algorithm>

namespace model {

namespace {

constexpr std::uint16_t kPptpEthernetUni = 11;
constexpr std::uint16_t kMacBridgePort = 47;
constexpr std::uint16_t kPreassignTable = 79;
constexpr std::uint16_t kVlanTaggingFilter = 84;
constexpr std::uint16_t kIpHost = 134;
constexpr std::uint16_t kDialPlan = 145;
constexpr std::uint16_t kExtendedVlanTagging = 171;
constexpr std::uint16_t kOnuG = 256;
constexpr std::uint16_t kGemInterworkingTp = 266;
constexpr std::uint16_t kGemPort = 268;
constexpr std::uint16_t kMulticastGemInterworkingTp = 281;
constexpr std::uint16_t kVeip = 329;
constexpr std::uint16_t kOpenOmci = 65400;
constexpr std::uint16_t kStatusPortal = 65420;

struct Range
{
    unsigned int first;
    unsigned int last;
};

using Key = std::pair<std::uint16_t, std::uint16_t>;

/// The values that one-octet attributes take, by class and mask; others take all.
const std::map<Key, std::vector<Range>>& ranges()
{
    static const std::map<Key, std::vector<Range>> known = {
        {{11, 0x2000}, {{0, 5}, {0x10, 0x14}, {0x20, 0x20}, {0x30, 0x30}}},
        {{11, 0x0800}, {{0, 1}, {0xFF, 0xFF}}},
        {{53, 0x8000}, {{0, 2}}},
        {{53, 0x0800}, {{0, 4}}},
        {{58, 0x8000}, {{1, 4}, {255, 255}}},
        {{58, 0x1000}, {{0, 1}}},
        {{82, 0x8000}, {{0, 1}}},
        {{90, 0x8000}, {{0, 1}}},
        {{138, 0x4000}, {{0, 3}, {255, 255}}},
        {{138, 0x1000}, {{0, 4}}},
        {{139, 0x1000}, {{1, 6}}},
        {{142, 0x8000}, {{0, 1}}},
        // Four orders of codec, packet period and silence suppression.
        {{142, 0x2000}, {{0, 18}}},
        {{142, 0x1000}, {{10, 30}}},
        {{142, 0x0800}, {{0, 1}}},
        {{142, 0x0400}, {{0, 18}}},
        {{142, 0x0200}, {{10, 30}}},
        {{142, 0x0100}, {{0, 1}}},
        {{142, 0x0080}, {{0, 18}}},
        {{142, 0x0040}, {{10, 30}}},
        {{142, 0x0020}, {{0, 1}}},
        {{142, 0x0010}, {{0, 18}}},
        {{142, 0x0008}, {{10, 30}}},
        {{142, 0x0004}, {{0, 1}}},
        {{142, 0x0002}, {{0, 1}}},
        {{143, 0x1000}, {{0, 1}}},
        {{143, 0x0800}, {{0, 1}}},
        {{143, 0x0400}, {{0, 1}}},
        {{143, 0x0200}, {{0, 1}}},
        {{256, 0x0200}, {{0, 1}}},
        {{329, 0x8000}, {{0, 1}}}};
    return known;
}

/// Orders to the ONU rather than values: taken, and the old value stands.
bool isPassed(const Key& key)
{
    static const std::vector<Key> known = {{53, 0x0010}, {140, 0x4000}, {144, 0x4000}, {151, 0x4000}, {152, 0x4000}};
    return std::find(known.begin(), known.end(), key) != known.end();
}

bool isInRange(const MibModel& mib, const Key& key, std::uint16_t instance, const Bytes& value)
{
    if (key == Key{kOpenOmci, 0x2000}) {
        // In network order, octets compare as the numbers that they are.
        return value <= mib.value(kOpenOmci, instance, 0x8000);
    }
    const auto found = ranges().find(key);
    return found == ranges().end() ||
           std::any_of(found->second.begin(), found->second.end(),
                       [&value](const Range& range) { return value[0] >= range.first && value[0] <= range.last; });
}

std::uint16_t read16(const Bytes& bytes)
{
    return static_cast<std::uint16_t>((bytes.at(0) << 8) | bytes.at(1));
}

/// Whether a VLAN tagging row goes to an entity that is not there. A row of zeros, and one that takes away a rule, go
/// nowhere; no session draws a row that takes one away.
bool lacksAssociated(const MibModel& mib, std::uint16_t instance, const Bytes& row)
{
    // By association type.
    static const std::map<unsigned int, std::uint16_t> classes = {
        {0, kMacBridgePort}, {2, kPptpEthernetUni}, {3, kIpHost}};
    constexpr std::uint16_t associationType = 0x8000;
    constexpr std::uint16_t associatedMe = 0x0200;
    const auto found = classes.find(mib.value(kExtendedVlanTagging, instance, associationType)[0]);
    const bool isZero = std::all_of(row.begin(), row.end(), [](std::uint8_t octet) { return octet == 0; });
    return found != classes.end() && !isZero &&
           mib.find(found->second, read16(mib.value(kExtendedVlanTagging, instance, associatedMe))) == nullptr;
}

/// A bridge port must be there for the VLAN tagging of association type 0; other types ask nobody.
bool lacksBridgePort(const MibModel& mib, std::uint16_t instance, std::uint16_t mask, const Bytes& value)
{
    constexpr std::uint16_t associationType = 0x8000;
    constexpr std::uint16_t inputTpid = 0x2000;
    constexpr std::uint16_t associatedMe = 0x0200;
    if ((mask != inputTpid && mask != associatedMe) ||
        mib.value(kExtendedVlanTagging, instance, associationType)[0] != 0) {
        return false;
    }
    const Bytes& pointer = mask == associatedMe ? value : mib.value(kExtendedVlanTagging, instance, associatedMe);
    return mib.find(kMacBridgePort, read16(pointer)) == nullptr;
}

/// ONU-G hands its state on to the GEM port of each interworking termination point.
bool lacksGemPort(const MibModel& mib, std::uint16_t instance, const Bytes& state)
{
    constexpr std::uint16_t administrativeState = 0x0200;
    constexpr std::uint16_t connectivityPointer = 0x8000;
    if (mib.value(kOnuG, instance, administrativeState) == state) {
        return false;
    }
    for (const std::uint16_t classId : {kGemInterworkingTp, kMulticastGemInterworkingTp}) {
        for (const auto& [number, made] : mib.instancesOf(classId)) {
            if (mib.find(kGemPort, read16(made.values.at(connectivityPointer))) == nullptr) {
                return true;
            }
        }
    }
    return false;
}

/// Stored, and reported as refused for want of what it needs.
bool isRefusedAfterStoring(const MibModel& mib, const Key& key, std::uint16_t instance, const Bytes& value)
{
    switch (key.first) {
    case kPreassignTable:
        return key.second == 0x0100 && mib.find(kMacBridgePort, instance) == nullptr;
    case kVlanTaggingFilter:
        return key.second == 0x2000;
    case kExtendedVlanTagging:
        return key.second == 0x0400 ? lacksAssociated(mib, instance, value)
                                    : lacksBridgePort(mib, instance, key.second, value);
    case kOnuG:
        return key.second == 0x0200 && lacksGemPort(mib, instance, value);
    default:
        return false;
    }
}

/// The operational state that a change of the administrative state brings with it.
std::map<std::uint16_t, Bytes> operationalState(const MibModel& mib, const Key& key, std::uint16_t instance,
                                                const Bytes& value)
{
    constexpr std::uint16_t operational = 0x4000;
    const bool isVideo = key == Key{82, 0x8000} || key == Key{90, 0x8000};
    if (isVideo && mib.hasHardware() && mib.value(key.first, instance, key.second) != value) {
        return {{operational, value}};
    }
    // Unlocked, it comes up with its service; locked, it is down in any case.
    if (key == Key{kVeip, 0x8000} && (value[0] == 1 || mib.hasHardware())) {
        return {{operational, value}};
    }
    return {};
}

/// What is kept of an accepted value.
Bytes kept(const Key& key, Bytes value)
{
    if (key == Key{kPptpEthernetUni, 0x0800} && value[0] == 0xFF) {
        return {1};
    }
    // A dial plan format that does not exist is none.
    if (key == Key{kDialPlan, 0x0800} && value[0] > 3) {
        return {0};
    }
    return value;
}

/// The instance of class 47 is an Ethernet port's.
bool hasUniPort(const MibModel& mib, std::uint16_t instance)
{
    constexpr std::uint16_t tpType = 0x2000;
    return mib.find(kMacBridgePort, instance) != nullptr && mib.value(kMacBridgePort, instance, tpType)[0] == 1;
}

bool hasGemPort(const MibModel& mib, std::uint16_t instance)
{
    constexpr std::uint16_t portId = 0x8000;
    return mib.find(kGemPort, instance) != nullptr && read16(mib.value(kGemPort, instance, portId)) != 0;
}

}  // namespace

Write write(const MibModel& mib, std::uint16_t classId, std::uint16_t instance, const Attribute& attribute,
            const Bytes& value)
{
    const Key key{classId, attribute.mask};
    Write outcome;
    outcome.value = kept(key, value);
    if (!isInRange(mib, key, instance, value)) {
        outcome.taken = Taken::Refused;
    } else if (isPassed(key)) {
        outcome.taken = Taken::Passed;
    } else if (isRefusedAfterStoring(mib, key, instance, value)) {
        outcome.taken = Taken::StoredYetRefused;
    } else {
        outcome.others = operationalState(mib, key, instance, value);
    }
    return outcome;
}

std::optional<Bytes> read(const MibModel& mib, std::uint16_t classId, std::uint16_t instance,
                          const Attribute& attribute, std::uint8_t type)
{
    const Key key{classId, attribute.mask};
    const bool isIntervalEnd = attribute.mask == 0x8000;
    switch (classId) {
    case kPptpEthernetUni:
        // Operational state and configuration are the hardware's to tell.
        if (attribute.mask == 0x0400 || attribute.mask == 0x0200) {
            return Bytes{0};
        }
        break;
    case 267:
    case 341:
        if (!hasGemPort(mib, instance)) {
            return std::nullopt;
        }
        break;
    case 321:
    case 322:
        if (isIntervalEnd && !hasUniPort(mib, instance)) {
            return std::nullopt;
        }
        break;
    case kDialPlan:
        // Number and greatest size of a dial plan are kept, and read as none.
        if (attribute.mask == 0x8000 || attribute.mask == 0x4000) {
            return Bytes(attribute.size);
        }
        break;
    default:
        break;
    }
    if (key == Key{141, 0x1000}) {
        return Bytes{0xFF, 0xFF};
    }
    if (key == Key{kStatusPortal, 0x0020}) {
        // The message's length, whatever it says.
        return type == GET ? Bytes{0, 0, 1, 0} : Bytes(4);
    }
    return mib.value(classId, instance, attribute.mask);
}

bool isRefusedByHardware(const MibModel& mib, std::uint16_t classId, std::uint16_t instance)
{
    if (classId != kIpHost) {
        return false;
    }
    constexpr std::uint16_t ipOptions = 0x8000;
    const bool isDynamic = (mib.value(kIpHost, instance, ipOptions)[0] & 1) != 0;
    const auto isSet = [&](std::uint16_t mask) {
        const Bytes& address = mib.value(kIpHost, instance, mask);
        return std::any_of(address.begin(), address.end(), [](std::uint8_t octet) { return octet != 0; });
    };
    constexpr std::uint16_t ipAddress = 0x1000;
    constexpr std::uint16_t mask = 0x0800;
    constexpr std::uint16_t gateway = 0x0400;
    // All that it takes is there, and no bridge port leads to the host.
    return isDynamic || (isSet(ipAddress) && isSet(mask) && isSet(gateway));
}

Bytes defaultOf(std::uint16_t classId, const Attribute& attribute)
{
    constexpr std::uint16_t ontFeature = 242;
    Bytes value = attribute.defaultValue;
    if (classId == ontFeature) {
        value[0] = 0x84;
    }
    return value;
}

std::vector<Companion> companionsOf(std::uint16_t classId)
{
    static const std::map<std::uint16_t, std::vector<Companion>> companions = {
        {45, {{305, true}}},                // the CFM stack of a bridge
        {47, {{79, false}, {348, false}}},  // the preassign tables of a bridge port
        {302, {{303, true}}}};              // the status of a maintenance end point
    const auto found = companions.find(classId);
    return found == companions.end() ? std::vector<Companion>() : found->second;
}

}  // namespace model
