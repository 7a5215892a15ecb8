#include "hardware/PhoneLines.h"

#include <algorithm>
#include <utility>

#include "MibAccess.h"
#include "OmciMePptpPotsUniIf.h"
#include "OmciMeVoipVoiceCTPIf.h"
#include "host/VoiceNames.h"

namespace {
constexpr unsigned short kClassVoipLineStatus = 141;

/// Server status of the VoIP line status, G.988 9.9.11.
constexpr unsigned char kServerNone = 0;
constexpr unsigned char kServerRegistered = 1;
constexpr unsigned char kServerInSession = 2;
constexpr unsigned char kServerPortNotConfigured = 13;

constexpr unsigned char kSessionTwoWay = 1;

template <typename Predicate>
void eraseLines(std::map<unsigned short, PhoneLine>& lines, Predicate isGone)
{
    for (auto line = lines.begin(); line != lines.end();) {
        line = isGone(line->second) ? lines.erase(line) : std::next(line);
    }
}

Json describeStatus(const VoipLineStatusData& data)
{
    const auto codec = static_cast<unsigned char>(std::min<unsigned short>(data.VoipCodecUsed, 0xFF));
    return {{"codec", omci::codecName(codec)},
            {"server", omci::voiceServerStatusName(data.VoipVoiceServerStatus)},
            {"session", omci::portSessionName(data.VoipPortSessionType)},
            {"line", omci::lineStateName(data.VoipLineState)},
            {"emergency", data.EmergencyCallStatus != 0}};
}
}  // namespace

VoipLineStatusData PhoneLines::storedStatus(unsigned short port)
{
    const auto stored = [port](unsigned short attributeMask) {
        return mib::storedNumber(kClassVoipLineStatus, port, attributeMask).value_or(0);
    };
    VoipLineStatusData data{};
    data.VoipCodecUsed = static_cast<unsigned short>(stored(0x8000));
    data.VoipVoiceServerStatus = static_cast<unsigned char>(stored(0x4000));
    data.VoipPortSessionType = static_cast<unsigned char>(stored(0x2000));
    data.VoipLineState = static_cast<unsigned char>(stored(0x100));
    data.EmergencyCallStatus = static_cast<unsigned char>(stored(0x80));
    return data;
}

const PhoneLine& PhoneLines::provision(const OmciMeVoipVoiceCTPIf& voiceCtp)
{
    PhoneLine line = readPhoneLine(voiceCtp);
    if (line.isComplete()) {
        m_Told.servedPorts.insert(line.potsPort);
    }
    return m_Told.byVoiceCtp[line.voiceCtp] = std::move(line);
}

Json PhoneLines::provisionAgent(unsigned short agent)
{
    m_Told.removedAgents.erase(agent);
    Json voiceCtps = Json::array();
    for (const auto& entry : m_Told.byVoiceCtp) {
        // A line whose voice CTP was deleted stays as it was: the delete does not take it down.
        const auto* voiceCtp = OmciMeVoipVoiceCTPIf::getManagedEntityInstance(entry.first);
        if (voiceCtp != nullptr && provision(*voiceCtp).agent == agent) {
            voiceCtps.push_back(entry.first);
        }
    }
    return voiceCtps;
}

void PhoneLines::removeUser(unsigned short user)
{
    eraseLines(m_Told.byVoiceCtp, [user](const PhoneLine& line) { return line.user == user; });
}

void PhoneLines::removeMediaProfile(unsigned short profile)
{
    eraseLines(m_Told.byVoiceCtp, [profile](const PhoneLine& line) { return line.mediaProfile == profile; });
}

void PhoneLines::removeAgent(unsigned short agent)
{
    m_Told.removedAgents.insert(agent);
}

void PhoneLines::clear()
{
    m_Told = {};
    m_Served = {};
    m_ReportedStatus.clear();
    m_ReportedHook.clear();
}

void PhoneLines::forgetReports(unsigned short port)
{
    m_ReportedStatus.erase(port);
    m_ReportedHook.erase(port);
}

const PhoneLine* PhoneLines::lineOn(unsigned short port) const
{
    const auto& lines = m_Served.byVoiceCtp;
    const auto found =
        std::find_if(lines.begin(), lines.end(), [port](const auto& entry) { return entry.second.potsPort == port; });
    return found == lines.end() ? nullptr : &found->second;
}

bool PhoneLines::isRegistered(const PhoneLine& line) const
{
    return line.isComplete() && m_Served.removedAgents.count(line.agent) == 0;
}

const PotsSettings* PhoneLines::phone(unsigned short port, const Ports& ports) const
{
    const auto found = ports.find(port);
    return found == ports.end() || m_ReportedHook.count(port) != 0 ? nullptr : &found->second;
}

VoipLineStatusData PhoneLines::measure(const PhoneLine* line, const PotsSettings& phone) const
{
    const bool isInCall = phone.call == PotsSettings::Call::Connected;
    unsigned char server = kServerPortNotConfigured;
    if (line != nullptr && line->isComplete()) {
        server = !isRegistered(*line) ? kServerNone : isInCall ? kServerInSession : kServerRegistered;
    }
    VoipLineStatusData data{};
    data.VoipCodecUsed = isInCall && line != nullptr ? line->codec : 0;
    data.VoipVoiceServerStatus = phone.server.value_or(server);
    data.VoipPortSessionType = phone.session.value_or(isInCall ? kSessionTwoWay : 0);
    data.VoipLineState = static_cast<unsigned char>(phone.call);
    data.EmergencyCallStatus = phone.isEmergency ? 1 : 0;
    return data;
}

std::optional<VoipLineStatusData> PhoneLines::status(unsigned short port, const Ports& ports) const
{
    const auto driven = ports.find(port);
    if (m_ReportedStatus.count(port) != 0 || (driven == ports.end() && m_Served.servedPorts.count(port) == 0)) {
        return std::nullopt;
    }
    return measure(lineOn(port), driven == ports.end() ? PotsSettings() : driven->second);
}

Json PhoneLines::describeLine(const PhoneLine& line) const
{
    Json described = line.description;
    described["registered"] = isRegistered(line);
    return described;
}

Json PhoneLines::describePort(unsigned short port, const Ports& ports) const
{
    constexpr unsigned short hookState = 0x40;
    constexpr unsigned short kClassPptpPotsUni = 53;
    const auto* const entity = OmciMePptpPotsUniIf::getManagedEntityInstance(port);
    const PotsSettings* const said = phone(port, ports);
    Json described = {{"port", port},
                      {"administrative", entity->getAdministrativeState(OMCI_ACTION_GET)},
                      {"hook", said != nullptr ? (said->isOffHook() ? 1 : 0)
                                               : mib::storedNumber(kClassPptpPotsUni, port, hookState).value_or(0)},
                      {"call", said != nullptr ? Json(said->callName()) : Json(nullptr)},
                      {"status", describeStatus(status(port, ports).value_or(storedStatus(port)))},
                      {"line", nullptr}};
    if (const PhoneLine* line = lineOn(port)) {
        described["line"] = describeLine(*line);
    }
    return described;
}

Json PhoneLines::describe(const Ports& ports) const
{
    Json all = Json::array();
    for (const auto* port = OmciMePptpPotsUniIf::getFirstManagedEntityInstance(); port != nullptr;
         port = OmciMePptpPotsUniIf::getNextManagedEntityInstance(port->getManagedEntityInstance())) {
        all.push_back(describePort(port->getManagedEntityInstance(), ports));
    }
    for (const auto& entry : m_Served.byVoiceCtp) {
        const unsigned short port = entry.second.potsPort;
        const bool isShown =
            OmciMePptpPotsUniIf::getManagedEntityInstance(port) != nullptr && lineOn(port) == &entry.second;
        if (!isShown) {
            all.push_back({{"port", nullptr}, {"line", describeLine(entry.second)}});
        }
    }
    return all;
}
