// The voice stack: lines, users, agents.
#include "JsonValues.h"
#include "MibAccess.h"
#include "hardware/EntityArguments.h"
#include "hardware/SimulatedHardware.h"

namespace {
constexpr unsigned short kClassPptpPotsUni = 53;
constexpr unsigned short kClassVoipLineStatus = 141;

template <typename T>
T stored(unsigned short classId, unsigned short instance, unsigned short attributeMask)
{
    return static_cast<T>(mib::storedNumber(classId, instance, attributeMask).value_or(0));
}
}  // namespace

int SimulatedHardware::refreshVoipLineStatus(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = slowCall("refreshVoipLineStatus", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        // A line stays as it was last reported.
        VoipLineStatusData data{};
        data.VoipCodecUsed = stored<unsigned short>(kClassVoipLineStatus, instance, 0x8000);
        data.VoipVoiceServerStatus = stored<unsigned char>(kClassVoipLineStatus, instance, 0x4000);
        data.VoipPortSessionType = stored<unsigned char>(kClassVoipLineStatus, instance, 0x2000);
        data.VoipLineState = stored<unsigned char>(kClassVoipLineStatus, instance, 0x100);
        data.EmergencyCallStatus = stored<unsigned char>(kClassVoipLineStatus, instance, 0x80);
        core->updateVoipLineStatus(instance, data);
    }
    return 0;
}

int SimulatedHardware::refreshPotsUni(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = slowCall("refreshPotsUni", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        pptpPotsUniGetAttr attributes{};
        attributes.OperationalState = stored<unsigned char>(kClassPptpPotsUni, instance, 0x80);
        attributes.HookState = stored<unsigned char>(kClassPptpPotsUni, instance, 0x40);
        core->updatePptpPotsUniCallAttributes(instance, attributes);
    }
    return 0;
}

int SimulatedHardware::removeVoipMediaProfile(OmciMeVoipMediaProfileIf* profile)
{
    const HardwareCall written = call("removeVoipMediaProfile", {entity(profile)});
    return 0;
}

int SimulatedHardware::removeSipUser(OmciMeSipUserDataIf* user)
{
    const HardwareCall written = call("removeSipUser", {entity(user)});
    return 0;
}

int SimulatedHardware::removeSipAgent(OmciMeSipAgentConfigDataIf* agent)
{
    const HardwareCall written = call("removeSipAgent", {entity(agent)});
    return 0;
}

int SimulatedHardware::provisionVoipVoiceCtp(OmciMeVoipVoiceCTPIf* voiceCtp)
{
    const HardwareCall written = call("provisionVoipVoiceCtp", {entity(voiceCtp)});
    return 0;
}

int SimulatedHardware::provisionSipAgent(OmciMeSipAgentConfigDataIf* agent)
{
    const HardwareCall written = call("provisionSipAgent", {entity(agent)});
    return 0;
}

int SimulatedHardware::applyPotsUni(unsigned short instance, unsigned int word, unsigned char txGain)
{
    const HardwareCall written = call("applyPotsUni", {instance, word, txGain});
    return 0;
}

int SimulatedHardware::applyVoipConfig(unsigned short instance, unsigned int word1, unsigned int word2)
{
    const HardwareCall written = call("applyVoipConfig", {instance, word1, word2});
    return 0;
}
