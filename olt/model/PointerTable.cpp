// The attributes that name other entities, as G.988 defines them: class, attribute, the attribute that selects the
// class of the target, and the target classes. A line is a fact; nothing else in the tool knows any of it.

#include "model/Pointers.h"

namespace olt {

namespace {

using Kind = PointerKind;

constexpr bool kHidden = false;

PointerTargets always(std::vector<std::uint16_t> classes)
{
    return {kAlways, std::move(classes)};
}

/// Any port of a queue or of a UNI management entity.
const std::vector<std::uint16_t> kUniClasses{11, 329, 53, 82};

std::vector<PointerRule> bridgeRules()
{
    return {
        {47, "BridgeIdPointer", nullptr, {always({45})}},
        {47, "TpPointer", "TpType", {{1, {11}}, {3, {130}}, {4, {134, 347}}, {5, {266}}, {6, {281}}, {11, {329}}}},
        {47, "OutboundTdPointer", nullptr, {always({280})}, Kind::Attribute, Zero::NoneIfAbsent, kHidden},
        {47, "InboundTdPointer", nullptr, {always({280})}, Kind::Attribute, Zero::NoneIfAbsent, kHidden},
        {52, nullptr, nullptr, {always({47})}, Kind::OwnInstance, Zero::Instance, kHidden},
        {79, nullptr, nullptr, {always({47})}, Kind::OwnInstance, Zero::Instance, kHidden},
        {84, nullptr, nullptr, {always({47})}, Kind::OwnInstance},
        {298, "ParentMePointer", "TpType", {{1, {45}}, {2, {130}}}},
        {298,
         "UpstreamUnicastFloodRatePointer",
         nullptr,
         {always({280})},
         Kind::Attribute,
         Zero::NoneIfAbsent,
         kHidden},
        {298, "UpstreamBroadcastRatePointer", nullptr, {always({280})}, Kind::Attribute, Zero::NoneIfAbsent, kHidden},
        {298,
         "UpstreamMulticastPayloadRatePointer",
         nullptr,
         {always({280})},
         Kind::Attribute,
         Zero::NoneIfAbsent,
         kHidden},
        {171,
         "AssociatedMePointer",
         "AssociationType",
         {{0, {47}}, {1, {130}}, {2, {11}}, {3, {134, 347}}, {5, {266}}, {6, {281}}, {10, {329}}}},
    };
}

std::vector<PointerRule> mapperRules()
{
    std::vector<PointerRule> rules{
        {130, "TpPointer", "TpType", {{1, {11}}, {2, {134, 347}}, {7, {329}}}},
    };
    for (const char* const attribute : {"InterworkTpPointerForPBitPriority0", "InterworkTpPointerForPBitPriority1",
                                        "InterworkTpPointerForPBitPriority2", "InterworkTpPointerForPBitPriority3",
                                        "InterworkTpPointerForPBitPriority4", "InterworkTpPointerForPBitPriority5",
                                        "InterworkTpPointerForPBitPriority6", "InterworkTpPointerForPBitPriority7"})
        rules.push_back({130, attribute, nullptr, {always({266})}});
    return rules;
}

std::vector<PointerRule> gemRules()
{
    return {
        {266, "GemPortNetworkCtpConnPointer", nullptr, {always({268})}},
        {266,
         "ServiceProfilePointer",
         "InterworkingOption",
         {{1, {45}}, {5, {130}}},
         Kind::Attribute,
         Zero::Instance,
         kHidden},
        {266, "GalProfilePointer", nullptr, {always({272})}, Kind::Attribute, Zero::NoneIfAbsent, kHidden},
        {281, "GemPortNetworkCtpConnPointer", nullptr, {always({268})}},
        {281,
         "ServiceProfilePointer",
         "InterworkingOption",
         {{1, {45}}, {5, {130}}},
         Kind::Attribute,
         Zero::NoneIfAbsent,
         kHidden},
        {281, "GalProfilePointer", nullptr, {always({272})}, Kind::Attribute, Zero::NoneIfAbsent, kHidden},
        {268, "TcontPointer", nullptr, {always({262})}, Kind::Attribute, Zero::NoneIfAbsent},
        {268, "TrafficMgmtPointerUpstream", nullptr, {always({277, 262})}, Kind::Attribute, Zero::None},
        {268, "PriorityQueuePointerDownstream", nullptr, {always({277})}, Kind::Attribute, Zero::NoneIfAbsent},
        {268,
         "TrafficDescProfilePointerUpstream",
         nullptr,
         {always({280})},
         Kind::Attribute,
         Zero::NoneIfAbsent,
         kHidden},
        {268,
         "TrafficDescProfilePointerDownstream",
         nullptr,
         {always({280})},
         Kind::Attribute,
         Zero::NoneIfAbsent,
         kHidden},
        {277, "TrafficSchedulerPointer", nullptr, {always({278})}, Kind::Attribute, Zero::NoneIfAbsent},
        {278, "TcontPointer", nullptr, {always({262})}, Kind::Attribute, Zero::NoneIfAbsent},
        {278, "TrafficSchedulerPointer", nullptr, {always({278})}, Kind::Attribute, Zero::NoneIfAbsent},
        {267, nullptr, nullptr, {always({268})}, Kind::OwnInstance, Zero::Instance, kHidden},
        {341, nullptr, nullptr, {always({268})}, Kind::OwnInstance, Zero::Instance, kHidden},
    };
}

std::vector<PointerRule> queueRules()
{
    std::vector<std::uint16_t> ports{262};
    ports.insert(ports.end(), kUniClasses.begin(), kUniClasses.end());
    return {{277, "RelatedPort", nullptr, {always(ports)}, Kind::RelatedPort, Zero::NoneIfAbsent, kHidden}};
}

std::vector<PointerRule> multicastRules()
{
    return {
        {310, "MulticastOperationsProfilePointer", nullptr, {always({309})}, Kind::Attribute, Zero::NoneIfAbsent},
        {310, nullptr, "MeType", {{0, {47}}, {1, {130}}}, Kind::OwnInstance},
        {311, nullptr, "MeType", {{0, {47}}, {1, {130}}}, Kind::OwnInstance, Zero::Instance, kHidden},
    };
}

std::vector<PointerRule> oamRules()
{
    return {
        {300, "MdPointer", nullptr, {always({299})}},
        {302, "Layer2EntityPointer", "Layer2Type", {{0, {47}}, {1, {130}}}},
        {302, "MaPointer", nullptr, {always({300})}},
    };
}

std::vector<PointerRule> ipAndVoiceRules()
{
    return {
        {136, "IpHostPointer", nullptr, {always({134, 347})}},
        {137, "SecurityPointer", nullptr, {always({148})}, Kind::Attribute, Zero::NoneIfAbsent},
        {137, "AddressPointer", nullptr, {always({157})}, Kind::Attribute, Zero::NoneIfAbsent},
        {138, "VoipConfigurationAddressPointer", nullptr, {always({137})}},
        {139, "UserProtocolPointer", nullptr, {always({153})}},
        {139, "PptpPointer", nullptr, {always({53})}},
        {139, "VoipMediaProfilePointer", nullptr, {always({142})}},
        {142, "VoiceServiceProfilePointer", nullptr, {always({58})}},
        {142, "RtpProfilePointer", nullptr, {always({143})}},
        {143, "IpHostConfigPointer", nullptr, {always({134, 347})}},
        {150, "ProxyServerAddressPointer", nullptr, {always({157})}, Kind::Attribute, Zero::NoneIfAbsent},
        {150, "OutboundProxyAddressPointer", nullptr, {always({157})}, Kind::Attribute, Zero::NoneIfAbsent},
        {150, "TcpUdpPointer", nullptr, {always({136})}},
        {150, "RedundantSipAgentPointer", nullptr, {always({150})}, Kind::Attribute, Zero::NoneIfAbsent},
        {153, "SipAgentPointer", nullptr, {always({150})}},
        {153, "NetworkDialPlanPointer", nullptr, {always({145})}, Kind::Attribute, Zero::NoneIfAbsent},
        {153, "ApplicationServicesProfilePointer", nullptr, {always({146})}, Kind::Attribute, Zero::NoneIfAbsent},
        {153, "PptpPointer", nullptr, {always({53})}},
        {329, "TcpUdpPointer", nullptr, {always({136})}, Kind::Attribute, Zero::NoneIfAbsent},
    };
}

std::vector<PointerRule> thresholdRules()
{
    std::vector<PointerRule> rules;
    const std::vector<PointerTargets> thresholds{always({273})};
    for (const std::uint16_t id :
         std::initializer_list<std::uint16_t>{24, 51, 52, 89, 135, 267, 276, 321, 322, 341, 343})
        rules.push_back(
            {id, "ThresholdData_1by2_Id", nullptr, thresholds, Kind::Attribute, Zero::NoneIfAbsent, kHidden});
    for (const std::uint16_t id : std::initializer_list<std::uint16_t>{140, 144, 151, 152, 312, 342})
        rules.push_back(
            {id, "ThresholdData_1_2_Id", nullptr, thresholds, Kind::Attribute, Zero::NoneIfAbsent, kHidden});
    return rules;
}

}  // namespace

const std::vector<PointerRule>& pointerRules()
{
    static const std::vector<PointerRule> all = [] {
        std::vector<PointerRule> rules;
        for (auto part : {bridgeRules(), mapperRules(), gemRules(), queueRules(), multicastRules(), oamRules(),
                          ipAndVoiceRules(), thresholdRules()})
            rules.insert(rules.end(), part.begin(), part.end());
        return rules;
    }();
    return all;
}

}  // namespace olt
