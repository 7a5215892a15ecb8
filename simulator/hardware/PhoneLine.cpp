#include "hardware/PhoneLine.h"

#include <algorithm>
#include <array>
#include <string>

#include "OmciMeIpHostConfigDataIf.h"
#include "OmciMeNetworkAddressIf.h"
#include "OmciMePptpPotsUniIf.h"
#include "OmciMeRTPProfileDataIf.h"
#include "OmciMeSipAgentConfigDataIf.h"
#include "OmciMeSipUserDataIf.h"
#include "OmciMeTcpUdpConfigDataIf.h"
#include "OmciMeVoiceServiceProfileIf.h"
#include "OmciMeVoipAppServiceProfileIf.h"
#include "OmciMeVoipMediaProfileIf.h"
#include "OmciMeVoipVoiceCTPIf.h"
#include "hardware/VoiceTexts.h"
#include "host/VoiceNames.h"

namespace {
constexpr EnumOmciAction kGet = OMCI_ACTION_GET;

/// Walks from the voice CTP outwards and remembers what was not there.
class LineReader
{
public:
    PhoneLine read(const OmciMeVoipVoiceCTPIf& voiceCtp);
    Json agent(const OmciMeSipAgentConfigDataIf& agent);
    const Json& dangling() const { return m_Dangling; }

private:
    /// A pointer attribute of one entity.
    struct Pointer
    {
        const char* entity;
        unsigned short instance;
        const char* attribute;
        unsigned short value;
    };

    template <typename Target>
    const Target* follow(const Pointer& pointer, const char* targetName);
    Json largeString(const Pointer& pointer);
    /// The address behind a network address; its credentials go along.
    Json networkAddress(const Pointer& pointer);
    Json credentials(const Pointer& pointer);
    Json user(const OmciMeSipUserDataIf& user);
    Json userServices(const OmciMeSipUserDataIf& user);
    Json transport(const Pointer& pointer);
    Json mediaProfile(const OmciMeVoipMediaProfileIf& profile);
    Json voiceService(const Pointer& pointer);
    Json rtp(const Pointer& pointer);
    void readPort(PhoneLine& line, unsigned short pointer);
    void readUser(PhoneLine& line, unsigned short pointer);
    void readMedia(PhoneLine& line, unsigned short pointer);

    Json m_Dangling = Json::array();
};

template <typename Target>
const Target* LineReader::follow(const Pointer& pointer, const char* targetName)
{
    if (pointer.value == kNoEntity) {
        return nullptr;
    }
    const Target* target = Target::getManagedEntityInstance(pointer.value);
    if (target == nullptr && pointer.value != 0) {
        const Json text = std::string(pointer.entity) + " " + std::to_string(pointer.instance) + " " +
                          pointer.attribute + " -> " + targetName + " " + std::to_string(pointer.value);
        if (std::find(m_Dangling.begin(), m_Dangling.end(), text) == m_Dangling.end()) {
            m_Dangling.push_back(text);
        }
    }
    return target;
}

Json LineReader::largeString(const Pointer& pointer)
{
    const auto* string = follow<OmciMeLargeStringIf>(pointer, "LargeString");
    return string == nullptr ? Json(nullptr) : Json(toText(textOf(*string)));
}

Json LineReader::networkAddress(const Pointer& pointer)
{
    const auto* address = follow<OmciMeNetworkAddressIf>(pointer, "NetworkAddress");
    if (address == nullptr) {
        return nullptr;
    }
    const unsigned short instance = address->getManagedEntityInstance();
    return {{"address", largeString({"NetworkAddress", instance, "AddressPointer", address->getAddressPointer(kGet)})},
            {"credentials",
             credentials({"NetworkAddress", instance, "SecurityPointer", address->getSecurityPointer(kGet)})}};
}

Json LineReader::credentials(const Pointer& pointer)
{
    const auto* method = follow<OmciMeAuthenticationSecurityMethodIf>(pointer, "AuthenticationSecurityMethod");
    return method == nullptr ? Json(nullptr) : describeCredentials(*method);
}

Json LineReader::transport(const Pointer& pointer)
{
    const auto* port = follow<OmciMeTcpUdpConfigDataIf>(pointer, "TcpUdpConfigData");
    if (port == nullptr) {
        return nullptr;
    }
    const unsigned short instance = port->getManagedEntityInstance();
    const auto* host = follow<OmciMeIpHostConfigDataIf>(
        {"TcpUdpConfigData", instance, "IpHostPointer", port->getIpHostPointer(kGet)}, "IpHostConfigData");
    return {{"instance", instance},
            {"protocol", omci::transportName(port->getProtocol(kGet))},
            {"port", port->getPortId(kGet)},
            {"tos", port->getTosDiffservField(kGet)},
            {"ip_host", host == nullptr ? Json(nullptr) : Json(host->getManagedEntityInstance())}};
}

Json LineReader::agent(const OmciMeSipAgentConfigDataIf& agent)
{
    const unsigned short instance = agent.getManagedEntityInstance();
    const auto pointer = [instance](const char* attribute, unsigned short value) {
        return Pointer{"SipAgentConfigData", instance, attribute, value};
    };
    return {{"instance", instance},
            {"proxy", largeString(pointer("ProxyServerAddressPointer", agent.getProxyServerAddressPointer(kGet)))},
            {"outbound_proxy",
             largeString(pointer("OutboundProxyAddressPointer", agent.getOutboundProxyAddressPointer(kGet)))},
            {"registrar", networkAddress(pointer("SipRegistrar", agent.getSipRegistrar(kGet)))},
            {"host_part", largeString(pointer("HostPartUri", agent.getHostPartUri(kGet)))},
            {"transport", transport(pointer("TcpUdpPointer", agent.getTcpUdpPointer(kGet)))},
            {"registration_s", agent.getSipRegExpTime(kGet)},
            {"reregistration_head_start_s", agent.getSipReregHeadStartTime(kGet)}};
}

Json LineReader::userServices(const OmciMeSipUserDataIf& user)
{
    const auto* services = follow<OmciMeVoipAppServiceProfileIf>({"SipUserData", user.getManagedEntityInstance(),
                                                                  "ApplicationServicesProfilePointer",
                                                                  user.getApplicationServicesProfilePointer(kGet)},
                                                                 "VoipAppServiceProfile");
    if (services == nullptr) {
        return nullptr;
    }
    return {{"instance", services->getManagedEntityInstance()},
            {"cid_features", services->getCidFeatures(kGet)},
            {"call_waiting_features", services->getCallWaitingFeatures(kGet)},
            {"call_progress_or_transfer_features", services->getCallProgressOrTransferFeatures(kGet)},
            {"call_presentation_features", services->getCallPresentationFeatures(kGet)},
            {"direct_connect_feature", services->getDirectConnectFeature(kGet)}};
}

Json LineReader::user(const OmciMeSipUserDataIf& user)
{
    constexpr std::size_t displayNameSize = 25;
    const unsigned short instance = user.getManagedEntityInstance();
    const auto pointer = [instance](const char* attribute, unsigned short value) {
        return Pointer{"SipUserData", instance, attribute, value};
    };
    const auto* dialPlan = follow<OmciMeNetworkDialPlanTableIf>(
        pointer("NetworkDialPlanPointer", user.getNetworkDialPlanPointer(kGet)), "NetworkDialPlanTable");
    return {{"instance", instance},
            {"user_part", largeString(pointer("UserPartAor", user.getUserPartAor(kGet)))},
            {"display_name", toText(textOf(user.getSipDisplayName(kGet), displayNameSize))},
            {"credentials", credentials(pointer("UsernameAndPassword", user.getUsernameAndPassword(kGet)))},
            {"voicemail", networkAddress(pointer("VoicemailServerSipUri", user.getVoicemailServerSipUri(kGet)))},
            {"dial_plan", dialPlan == nullptr ? Json(nullptr) : describeDialPlan(*dialPlan)},
            {"services", userServices(user)},
            {"release_timer_s", user.getReleaseTimer(kGet)},
            {"receiver_off_hook_timer_s", user.getReceiverOffHookTimer(kGet)}};
}

Json LineReader::voiceService(const Pointer& pointer)
{
    const auto* service = follow<OmciMeVoiceServiceProfileIf>(pointer, "VoiceServiceProfile");
    if (service == nullptr) {
        return nullptr;
    }
    return {{"instance", service->getManagedEntityInstance()},
            {"jitter_target_ms", service->getJitterTarget(kGet)},
            {"jitter_buffer_max_ms", service->getJitterBufferMax(kGet)},
            {"echo_cancellation", service->getEchoCancelInd(kGet) != 0}};
}

Json LineReader::rtp(const Pointer& pointer)
{
    const auto* profile = follow<OmciMeRTPProfileDataIf>(pointer, "RTPProfileData");
    if (profile == nullptr) {
        return nullptr;
    }
    return {{"instance", profile->getManagedEntityInstance()},
            {"local_port_min", profile->getLocalPortMin(kGet)},
            {"local_port_max", profile->getLocalPortMax(kGet)},
            {"dscp", profile->getDscpMark(kGet)}};
}

Json codecsOf(const OmciMeVoipMediaProfileIf& profile)
{
    struct Choice
    {
        unsigned char codec;
        unsigned char packetPeriod;
        unsigned char silenceSuppression;
    };
    const std::array<Choice, 4> choices = {{
        {profile.getCodecSelectionFirstOrder(kGet), profile.getPacketPeriodSelectionFirstOrder(kGet),
         profile.getSilenceSuppressionFirstOrder(kGet)},
        {profile.getCodecSelectionSecondOrder(kGet), profile.getPacketPeriodSelectionSecondOrder(kGet),
         profile.getSilenceSuppressionSecondOrder(kGet)},
        {profile.getCodecSelectionThirdOrder(kGet), profile.getPacketPeriodSelectionThirdOrder(kGet),
         profile.getSilenceSuppressionThirdOrder(kGet)},
        {profile.getCodecSelectionFourthOrder(kGet), profile.getPacketPeriodSelectionFourthOrder(kGet),
         profile.getSilenceSuppressionFourthOrder(kGet)},
    }};
    Json codecs = Json::array();
    for (const Choice& choice : choices) {
        codecs.push_back({{"codec", omci::codecName(choice.codec)},
                          {"packet_period_ms", choice.packetPeriod},
                          {"silence_suppression", choice.silenceSuppression != 0}});
    }
    return codecs;
}

Json LineReader::mediaProfile(const OmciMeVoipMediaProfileIf& profile)
{
    const unsigned short instance = profile.getManagedEntityInstance();
    return {{"instance", instance},
            {"codecs", codecsOf(profile)},
            {"fax", omci::faxModeName(profile.getFaxMode(kGet))},
            {"out_of_band_dtmf", profile.getOobDtmf(kGet) != 0},
            {"voice_service", voiceService({"VoipMediaProfile", instance, "VoiceServiceProfilePointer",
                                            profile.getVoiceServiceProfilePointer(kGet)})},
            {"rtp", rtp({"VoipMediaProfile", instance, "RtpProfilePointer", profile.getRtpProfilePointer(kGet)})}};
}

/// The address that others call, where both of its parts are known.
Json addressOfRecord(const Json& user, const Json& agent)
{
    if (user.is_null() || agent.is_null() || !user["user_part"].is_string() || !agent["host_part"].is_string()) {
        return nullptr;
    }
    return "sip:" + user["user_part"].get<std::string>() + "@" + agent["host_part"].get<std::string>();
}

void LineReader::readPort(PhoneLine& line, unsigned short pointer)
{
    const auto* port =
        follow<OmciMePptpPotsUniIf>({"VoipVoiceCTP", line.voiceCtp, "PptpPointer", pointer}, "PptpPotsUni");
    if (port != nullptr) {
        line.potsPort = port->getManagedEntityInstance();
        line.description["pots_port"] = line.potsPort;
    }
}

void LineReader::readUser(PhoneLine& line, unsigned short pointer)
{
    const auto* sipUser =
        follow<OmciMeSipUserDataIf>({"VoipVoiceCTP", line.voiceCtp, "UserProtocolPointer", pointer}, "SipUserData");
    if (sipUser == nullptr) {
        return;
    }
    line.user = sipUser->getManagedEntityInstance();
    line.description["user"] = user(*sipUser);
    const auto* sipAgent = follow<OmciMeSipAgentConfigDataIf>(
        {"SipUserData", line.user, "SipAgentPointer", sipUser->getSipAgentPointer(kGet)}, "SipAgentConfigData");
    if (sipAgent != nullptr) {
        line.agent = sipAgent->getManagedEntityInstance();
        line.description["agent"] = agent(*sipAgent);
    }
}

void LineReader::readMedia(PhoneLine& line, unsigned short pointer)
{
    const auto* profile = follow<OmciMeVoipMediaProfileIf>(
        {"VoipVoiceCTP", line.voiceCtp, "VoipMediaProfilePointer", pointer}, "VoipMediaProfile");
    if (profile != nullptr) {
        line.mediaProfile = profile->getManagedEntityInstance();
        line.codec = profile->getCodecSelectionFirstOrder(kGet);
        line.description["media"] = mediaProfile(*profile);
    }
}

PhoneLine LineReader::read(const OmciMeVoipVoiceCTPIf& voiceCtp)
{
    PhoneLine line;
    line.voiceCtp = voiceCtp.getManagedEntityInstance();
    line.description = {{"voice_ctp", line.voiceCtp},
                        {"pots_port", nullptr},
                        {"address_of_record", nullptr},
                        {"signalling", omci::signallingCodeName(voiceCtp.getSignallingCode(kGet))},
                        {"user", nullptr},
                        {"agent", nullptr},
                        {"media", nullptr}};
    readPort(line, voiceCtp.getPptpPointer(kGet));
    readUser(line, voiceCtp.getUserProtocolPointer(kGet));
    readMedia(line, voiceCtp.getVoipMediaProfilePointer(kGet));
    line.description["address_of_record"] = addressOfRecord(line.description["user"], line.description["agent"]);
    line.description["dangling"] = m_Dangling;
    return line;
}
}  // namespace

PhoneLine readPhoneLine(const OmciMeVoipVoiceCTPIf& voiceCtp)
{
    return LineReader().read(voiceCtp);
}

Json describeSipAgent(const OmciMeSipAgentConfigDataIf& agent)
{
    LineReader reader;
    Json description = reader.agent(agent);
    description["dangling"] = reader.dangling();
    return description;
}
