#include "voice/VoiceLine.h"

#include "host/VoiceNames.h"
#include "model/PartedText.h"
#include "model/Value.h"

namespace olt {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::uint16_t kVoiceServiceProfile = 58;
constexpr std::uint16_t kIpHost = 134;
constexpr std::uint16_t kTcpUdp = 136;
constexpr std::uint16_t kNetworkAddress = 137;
constexpr std::uint16_t kLineStatus = 141;
constexpr std::uint16_t kMediaProfile = 142;
constexpr std::uint16_t kRtpProfile = 143;
constexpr std::uint16_t kDialPlan = 145;
constexpr std::uint16_t kAppServices = 146;
constexpr std::uint16_t kSecurityMethod = 148;
constexpr std::uint16_t kSipAgent = 150;
constexpr std::uint16_t kSipUser = 153;
constexpr std::uint16_t kLargeString = 157;

Json numberOf(const ReadEntity& entity, const char* attribute)
{
    const auto number = entity.number(attribute);
    return number ? Json(*number) : Json(nullptr);
}

Json flagOf(const ReadEntity& entity, const char* attribute)
{
    const auto number = entity.number(attribute);
    return number ? Json(*number != 0) : Json(nullptr);
}

/// The number in words, as one of the functions of host/VoiceNames.h has it.
Json nameOf(const ReadEntity& entity, const char* attribute, const char* (*name)(std::uint8_t))
{
    const auto number = entity.number(attribute);
    if (!number)
        return nullptr;
    return *number > 0xFF ? "unknown" : name(static_cast<std::uint8_t>(*number));
}

class LineResolver
{
public:
    LineResolver(EntityReader& reader, Secrets secrets) : m_Reader(reader), m_Secrets(secrets) {}

    Json line(const ReadEntity& voiceCtp);

private:
    Json largeString(const ReadEntity& from, const char* attribute);
    Json networkAddress(const ReadEntity& from, const char* attribute);
    Json credentials(const ReadEntity& from, const char* attribute);
    Json potsPort(const ReadEntity& voiceCtp);
    Json lineStatus(std::uint16_t port);
    Json user(const ReadEntity& sipUser);
    Json dialPlan(const ReadEntity& sipUser);
    Json agent(const ReadEntity& sipAgent);
    Json transport(const ReadEntity& sipAgent);
    Json media(const ReadEntity& voiceCtp);
    Json voiceService(const ReadEntity& profile);
    Json rtp(const ReadEntity& profile);

    EntityReader& m_Reader;
    Secrets m_Secrets;
};

Json LineResolver::largeString(const ReadEntity& from, const char* attribute)
{
    const ReadEntity* const string = m_Reader.follow(from, attribute, kLargeString);
    if (!string)
        return nullptr;
    const auto octets = joinText(*string->id().entityClass, string->values());
    return octets ? Json(plainText(*octets)) : Json(nullptr);
}

Json LineResolver::networkAddress(const ReadEntity& from, const char* attribute)
{
    const ReadEntity* const address = m_Reader.follow(from, attribute, kNetworkAddress);
    if (!address)
        return nullptr;
    return {{"instance", address->id().instance},
            {"address", largeString(*address, "AddressPointer")},
            {"credentials", credentials(*address, "SecurityPointer")}};
}

Json LineResolver::credentials(const ReadEntity& from, const char* attribute)
{
    const ReadEntity* const method = m_Reader.follow(from, attribute, kSecurityMethod);
    if (!method)
        return nullptr;
    Bytes user = method->text("Username_1");
    const Bytes more = method->text("Username_2");
    user.insert(user.end(), more.begin(), more.end());
    const Bytes password = method->text("Password");
    Json json{{"instance", method->id().instance},
              {"user", plainText(user)},
              {"realm", plainText(method->text("Realm"))},
              {"has_password", !password.empty()}};
    if (m_Secrets == Secrets::Shown)
        json["password"] = plainText(password);
    return json;
}

Json LineResolver::potsPort(const ReadEntity& voiceCtp)
{
    const ReadEntity* const port = m_Reader.follow(voiceCtp, "PptpPointer", kClassPotsUni);
    if (!port)
        return nullptr;
    return {{"instance", port->id().instance},
            {"administrative", numberOf(*port, "AdministrativeState")},
            {"operational", numberOf(*port, "OperationalState")},
            {"hook", numberOf(*port, "HookState")}};
}

Json LineResolver::lineStatus(std::uint16_t port)
{
    // A line status has the number of its POTS port.
    const ReadEntity* const status = m_Reader.read(kLineStatus, port);
    if (!status)
        return nullptr;
    return {{"server", nameOf(*status, "VoipVoiceServerStatus", omci::voiceServerStatusName)},
            {"line", nameOf(*status, "VoipLineState", omci::lineStateName)},
            {"session", nameOf(*status, "VoipPortSessionType", omci::portSessionName)},
            {"codec", nameOf(*status, "VoipCodecUsed", omci::codecName)},
            {"emergency", flagOf(*status, "EmergencyCallStatus")}};
}

Json LineResolver::dialPlan(const ReadEntity& sipUser)
{
    const ReadEntity* const plan = m_Reader.follow(sipUser, "NetworkDialPlanPointer", kDialPlan);
    if (!plan)
        return nullptr;
    return {{"instance", plan->id().instance},
            {"format", nameOf(*plan, "DialPlanFormat", omci::dialPlanFormatName)},
            {"critical_timeout_ms", numberOf(*plan, "CriticalDialTimeout")},
            {"partial_timeout_ms", numberOf(*plan, "PartialDialTimeout")},
            {"table_size", numberOf(*plan, "DialPlanTable")}};
}

Json LineResolver::user(const ReadEntity& sipUser)
{
    const ReadEntity* const services = m_Reader.follow(sipUser, "ApplicationServicesProfilePointer", kAppServices);
    return {{"instance", sipUser.id().instance},
            {"user_part", largeString(sipUser, "UserPartAor")},
            {"display_name", plainText(sipUser.text("SipDisplayName"))},
            {"credentials", credentials(sipUser, "UsernameAndPassword")},
            {"voicemail", networkAddress(sipUser, "VoicemailServerSipUri")},
            {"dial_plan", dialPlan(sipUser)},
            {"services", services ? Json(services->id().instance) : Json(nullptr)}};
}

Json LineResolver::transport(const ReadEntity& sipAgent)
{
    const ReadEntity* const port = m_Reader.follow(sipAgent, "TcpUdpPointer", kTcpUdp);
    if (!port)
        return nullptr;
    const ReadEntity* const host = m_Reader.follow(*port, "IpHostPointer", kIpHost);
    Json json{{"instance", port->id().instance},
              {"protocol", nameOf(*port, "Protocol", omci::transportName)},
              {"port", numberOf(*port, "PortId")},
              {"tos", numberOf(*port, "TosDiffservField")},
              {"ip_host", host ? Json(host->id().instance) : Json(nullptr)},
              {"address", nullptr}};
    const Bytes* const address = host ? host->octets("CurrentAddress") : nullptr;
    if (address)
        json["address"] = formatValue(host->id().entityClass->attribute("CurrentAddress"), *address);
    return json;
}

Json LineResolver::agent(const ReadEntity& sipAgent)
{
    return {{"instance", sipAgent.id().instance},
            {"host_part", largeString(sipAgent, "HostPartUri")},
            {"proxy", largeString(sipAgent, "ProxyServerAddressPointer")},
            {"outbound_proxy", largeString(sipAgent, "OutboundProxyAddressPointer")},
            {"registrar", networkAddress(sipAgent, "SipRegistrar")},
            {"transport", transport(sipAgent)},
            {"registration_s", numberOf(sipAgent, "SipRegExpTime")},
            {"reregistration_head_start_s", numberOf(sipAgent, "SipReregHeadStartTime")}};
}

Json LineResolver::voiceService(const ReadEntity& profile)
{
    const ReadEntity* const service = m_Reader.follow(profile, "VoiceServiceProfilePointer", kVoiceServiceProfile);
    if (!service)
        return nullptr;
    return {{"instance", service->id().instance},
            {"jitter_target_ms", numberOf(*service, "JitterTarget")},
            {"jitter_buffer_max_ms", numberOf(*service, "JitterBufferMax")},
            {"echo_cancellation", flagOf(*service, "EchoCancelInd")}};
}

Json LineResolver::rtp(const ReadEntity& profile)
{
    const ReadEntity* const rtp = m_Reader.follow(profile, "RtpProfilePointer", kRtpProfile);
    if (!rtp)
        return nullptr;
    return {{"instance", rtp->id().instance},
            {"local_port_min", numberOf(*rtp, "LocalPortMin")},
            {"local_port_max", numberOf(*rtp, "LocalPortMax")},
            {"dscp", numberOf(*rtp, "DscpMark")}};
}

Json LineResolver::media(const ReadEntity& voiceCtp)
{
    const ReadEntity* const profile = m_Reader.follow(voiceCtp, "VoipMediaProfilePointer", kMediaProfile);
    if (!profile)
        return nullptr;
    Json codecs = Json::array();
    for (const char* const order : {"First", "Second", "Third", "Fourth"}) {
        const auto named = [order](const char* what) { return what + std::string(order) + "Order"; };
        codecs.push_back({{"codec", nameOf(*profile, named("CodecSelection").c_str(), omci::codecName)},
                          {"packet_period_ms", numberOf(*profile, named("PacketPeriodSelection").c_str())},
                          {"silence_suppression", flagOf(*profile, named("SilenceSuppression").c_str())}});
    }
    return {{"instance", profile->id().instance},
            {"codecs", std::move(codecs)},
            {"fax", nameOf(*profile, "FaxMode", omci::faxModeName)},
            {"out_of_band_dtmf", flagOf(*profile, "OobDtmf")},
            {"voice_service", voiceService(*profile)},
            {"rtp", rtp(*profile)}};
}

Json LineResolver::line(const ReadEntity& voiceCtp)
{
    Json json{{"voice_ctp", voiceCtp.id().instance},
              {"signalling", nameOf(voiceCtp, "SignallingCode", omci::signallingCodeName)},
              {"pots_port", potsPort(voiceCtp)},
              {"status", nullptr},
              {"address_of_record", nullptr},
              {"user", nullptr},
              {"agent", nullptr}};
    if (!json["pots_port"].is_null())
        json["status"] = lineStatus(json["pots_port"]["instance"].get<std::uint16_t>());
    if (const ReadEntity* const sipUser = m_Reader.follow(voiceCtp, "UserProtocolPointer", kSipUser)) {
        json["user"] = user(*sipUser);
        if (const ReadEntity* const sipAgent = m_Reader.follow(*sipUser, "SipAgentPointer", kSipAgent))
            json["agent"] = agent(*sipAgent);
    }
    json["media"] = media(voiceCtp);
    const bool isAddressed = !json["user"].is_null() && json["user"]["user_part"].is_string() &&
                             !json["agent"].is_null() && json["agent"]["host_part"].is_string();
    if (isAddressed)
        json["address_of_record"] =
            "sip:" + json["user"]["user_part"].get<std::string>() + "@" + json["agent"]["host_part"].get<std::string>();
    json["dangling"] = m_Reader.takeDangling();
    return json;
}

}  // namespace

nlohmann::ordered_json describeLine(EntityReader& reader, const ReadEntity& voiceCtp, Secrets secrets)
{
    return LineResolver(reader, secrets).line(voiceCtp);
}

}  // namespace olt
