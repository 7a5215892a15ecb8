// The voice stack: lines, users, agents.
#include "JsonValues.h"
#include "MibAccess.h"
#include "hardware/EntityArguments.h"
#include "hardware/SimulatedHardware.h"

namespace {
constexpr unsigned short kClassPptpPotsUni = 53;

template <typename T>
T stored(unsigned short classId, unsigned short instance, unsigned short attributeMask)
{
    return static_cast<T>(mib::storedNumber(classId, instance, attributeMask).value_or(0));
}
}  // namespace

void SimulatedHardware::rememberLine(const std::string& entry, const Json& arguments)
{
    if (entry == "updateVoipLineStatus") {
        m_PhoneLines.keepReportedStatus(arguments.at(0).get<unsigned short>());
    } else if (entry == "updatePptpPotsUniCallAttributes") {
        m_PhoneLines.keepReportedHook(arguments.at(0).get<unsigned short>());
    }
}

void SimulatedHardware::changePhones(const Json& request)
{
    if (request.contains("pots")) {
        for (const auto& entry : request["pots"].items()) {
            m_PhoneLines.forgetReports(static_cast<unsigned short>(std::stoul(entry.key())));
        }
    }
}

Json SimulatedHardware::describeLines() const
{
    return m_PhoneLines.describe(settings().phones);
}

void SimulatedHardware::forgetServices()
{
    m_Services.clear();
    m_Services.serve(m_Services.told());
    m_PhoneLines.clear();
    m_IpHosts.clear();
}

int SimulatedHardware::refreshVoipLineStatus(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshVoipLineStatus", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        // A line that nobody knows more of stays as it was last reported.
        core->updateVoipLineStatus(
            instance, m_PhoneLines.status(instance, settings().phones).value_or(PhoneLines::storedStatus(instance)));
    }
    return 0;
}

int SimulatedHardware::refreshPotsUni(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshPotsUni", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        pptpPotsUniGetAttr attributes{};
        attributes.OperationalState = stored<unsigned char>(kClassPptpPotsUni, instance, 0x80);
        attributes.HookState = stored<unsigned char>(kClassPptpPotsUni, instance, 0x40);
        const std::map<unsigned short, PotsSettings> phones = settings().phones;
        if (const PotsSettings* phone = m_PhoneLines.phone(instance, phones)) {
            attributes.OperationalState = phone->operationalState.value_or(attributes.OperationalState);
            attributes.HookState = phone->isOffHook() ? 1 : 0;
        }
        core->updatePptpPotsUniCallAttributes(instance, attributes);
    }
    return 0;
}

int SimulatedHardware::removeVoipMediaProfile(OmciMeVoipMediaProfileIf* profile)
{
    const HardwareCall written = call("removeVoipMediaProfile", {entity(profile)});
    m_PhoneLines.removeMediaProfile(profile->getManagedEntityInstance());
    serveLines(written);
    return 0;
}

int SimulatedHardware::removeSipUser(OmciMeSipUserDataIf* user)
{
    const HardwareCall written = call("removeSipUser", {entity(user)});
    m_PhoneLines.removeUser(user->getManagedEntityInstance());
    serveLines(written);
    return 0;
}

int SimulatedHardware::removeSipAgent(OmciMeSipAgentConfigDataIf* agent)
{
    const HardwareCall written = call("removeSipAgent", {entity(agent)});
    m_PhoneLines.removeAgent(agent->getManagedEntityInstance());
    serveLines(written);
    return 0;
}

int SimulatedHardware::provisionVoipVoiceCtp(OmciMeVoipVoiceCTPIf* voiceCtp)
{
    HardwareCall written = call("provisionVoipVoiceCtp", {entity(voiceCtp)});
    written.setRead("line", m_PhoneLines.provision(*voiceCtp).description);
    serveLines(written);
    return 0;
}

int SimulatedHardware::provisionSipAgent(OmciMeSipAgentConfigDataIf* agent)
{
    HardwareCall written = call("provisionSipAgent", {entity(agent)});
    written.setRead("agent", describeSipAgent(*agent));
    written.setRead("voice_ctps", m_PhoneLines.provisionAgent(agent->getManagedEntityInstance()));
    serveLines(written);
    return 0;
}

int SimulatedHardware::applyPotsUni(unsigned short instance, unsigned int word, unsigned char txGain)
{
    const HardwareCall written = call("applyPotsUni", {instance, word, txGain});
    workLater(written);
    return 0;
}

int SimulatedHardware::applyVoipConfig(unsigned short instance, unsigned int word1, unsigned int word2)
{
    const HardwareCall written = call("applyVoipConfig", {instance, word1, word2});
    workLater(written);
    return 0;
}
