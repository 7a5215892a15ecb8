// The optical front end: levels, wavelengths, self-test.
#include "JsonValues.h"
#include "MibAccess.h"
#include "hardware/SimulatedHardware.h"

namespace {
constexpr unsigned short kClassTwdmChannel = 65402;

unsigned char storedOctet(unsigned short instance, unsigned short attributeMask)
{
    return static_cast<unsigned char>(mib::storedNumber(kClassTwdmChannel, instance, attributeMask).value_or(0));
}
}  // namespace

void SimulatedHardware::rememberLevels(const std::string& entry, const Json& arguments)
{
    const bool isReceived = entry == "updateAniGOpticalSignalLevel";
    if (isReceived || entry == "updateAniGTransmitOpticalLevel") {
        const auto level = arguments.at(1).get<unsigned short>();
        const std::lock_guard<std::mutex> lock(m_Mutex);
        optics::FixedLevels& ani = m_Settings.anis[arguments.at(0).get<unsigned short>()];
        (isReceived ? ani.received : ani.transmitted) = level;
    }
}

std::chrono::seconds SimulatedHardware::opticalAge() const
{
    const double milliseconds = static_cast<double>(m_Clock.uptime().count()) * m_TimeScale;
    return std::chrono::seconds(static_cast<long long>(milliseconds / 1000));
}

optics::Levels SimulatedHardware::opticalLevels(unsigned short instance) const
{
    return optics::levelsAfter(opticalAge(), settings().ani(instance));
}

int SimulatedHardware::refreshAniOpticalSignalLevel(unsigned short instance)
{
    const HardwareCall written = call("refreshAniOpticalSignalLevel", {instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateAniGOpticalSignalLevel(instance, opticalLevels(instance).received);
    }
    return 0;
}

int SimulatedHardware::refreshAniTransmitOpticalLevel(unsigned short instance)
{
    const HardwareCall written = call("refreshAniTransmitOpticalLevel", {instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        core->updateAniGTransmitOpticalLevel(instance, opticalLevels(instance).transmitted);
    }
    return 0;
}

int SimulatedHardware::refreshTwdmChannel(EnumOmciAction action, unsigned short instance)
{
    const HardwareCall written = call("refreshTwdmChannel", {static_cast<int>(action), instance});
    if (OmciManagedEntitiesCore* core = reportee()) {
        // The channels move only when they are told to: what was reported last still holds.
        core->updateTwdmChannel(instance, {storedOctet(instance, 0x8000), storedOctet(instance, 0x4000),
                                           storedOctet(instance, 0x2000), storedOctet(instance, 0x1000)});
    }
    return 0;
}

int SimulatedHardware::applyTwdmSystemProfile(TwdmSystemProfile profile)
{
    const HardwareCall written = call("applyTwdmSystemProfile", {values::to(profile)});
    workLater(written);
    return 0;
}

int SimulatedHardware::setTwdmChannelPartitionIndex(unsigned short instance, unsigned char value)
{
    const HardwareCall written = call("setTwdmChannelPartitionIndex", {instance, value});
    workLater(written);
    return 0;
}

int SimulatedHardware::setTwdmChannelPartitionWaiverTimer(unsigned short instance, unsigned int value)
{
    const HardwareCall written = call("setTwdmChannelPartitionWaiverTimer", {instance, value});
    workLater(written);
    return 0;
}

int SimulatedHardware::setTwdmDownstreamTuningTimer(unsigned short instance, unsigned int value)
{
    const HardwareCall written = call("setTwdmDownstreamTuningTimer", {instance, value});
    workLater(written);
    return 0;
}

int SimulatedHardware::setTwdmLodsProtectionTimer(unsigned short instance, unsigned int value)
{
    const HardwareCall written = call("setTwdmLodsProtectionTimer", {instance, value});
    workLater(written);
    return 0;
}

int SimulatedHardware::setTwdmLodsReinitializationTimer(unsigned short instance, unsigned int value)
{
    const HardwareCall written = call("setTwdmLodsReinitializationTimer", {instance, value});
    workLater(written);
    return 0;
}

int SimulatedHardware::setTwdmUpstreamTuningTimer(unsigned short instance, unsigned int value)
{
    const HardwareCall written = call("setTwdmUpstreamTuningTimer", {instance, value});
    workLater(written);
    return 0;
}
