// Status that the host's managers report at run time.
#include <array>
#include <cstdio>
#include <mutex>
#include <optional>

#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "impl/Log.h"
#include "impl/RegistrarLock.h"
#include "implExtended/EthernetConfigInd.h"

namespace {

constexpr unsigned short kCardholderClass = 5;
constexpr unsigned short kCircuitPackClass = 6;
constexpr unsigned short kPptpEthernetUniClass = 11;
constexpr unsigned short kPptpPotsUniClass = 53;
constexpr unsigned short kIpHostClass = 134;
constexpr unsigned short kVoipConfigDataClass = 138;
constexpr unsigned short kVoipLineStatusClass = 141;
constexpr unsigned short kAniGClass = 263;
constexpr unsigned short kTwdmChannelClass = 65402;
constexpr unsigned short kStatusPortalClass = 65420;

/// The cardholder and the circuit pack that the first Ethernet port sits in.
constexpr unsigned short kFirstSlot = 257;
constexpr unsigned int kFirstTwdmChannel = 1024;

template <typename T>
int update(unsigned short classId, unsigned short instance, unsigned short attributeMask, T value)
{
    return OmciManagedEntityRegistrar::getInstance()->updateManagedEntity(classId, instance, attributeMask, value);
}

unsigned short twdmChannelInstance(unsigned char channel)
{
    return static_cast<unsigned short>(channel + kFirstTwdmChannel);
}

/// The four bytes of a dotted address.
std::optional<std::string> addressBytes(const std::string& dotted)
{
    std::array<unsigned char, 4> bytes{};
    if (std::sscanf(dotted.c_str(), "%hhu.%hhu.%hhu.%hhu", &bytes[0], &bytes[1], &bytes[2], &bytes[3]) != 4) {
        return std::nullopt;
    }
    return std::string(bytes.begin(), bytes.end());
}

}  // namespace

int OmciManagedEntitiesCore::updatePptpEthernetUniMEOperStateSpeedMode(unsigned short instance,
                                                                       unsigned char operationalState,
                                                                       unsigned short speed, unsigned char mode)
{
    NRVK_LOG(6, "Instance(%hu); Operational state(%hhu); Speed(%hu); Mode(%hhu)", instance, operationalState, speed,
             mode);
    int result = update(kPptpEthernetUniClass, instance, 0x400, operationalState);
    result += update(kPptpEthernetUniClass, instance, 0x200, nrvk::ethernetConfigInd(speed, mode));
    if (result != 0) {
        NRVK_LOG(4, "Failed to update one or more attributes");
        return -1;
    }
    return 0;
}

int OmciManagedEntitiesCore::updatePptpEthernetUniMESensedTypeAndMaxFrameSize(unsigned short instance,
                                                                              unsigned char type,
                                                                              unsigned short maxFrameSize)
{
    NRVK_LOG(6, "Instance(%hu); SFP type(%hhu)", instance, type);
    update(kPptpEthernetUniClass, instance, 0x4000, type);
    update(kPptpEthernetUniClass, instance, 0x8000, type);
    update(kPptpEthernetUniClass, instance, 0x100, maxFrameSize);
    // Whichever port reports, the first slot follows it.
    update(kCircuitPackClass, kFirstSlot, 0x8000, type);
    update(kCardholderClass, kFirstSlot, 0x4000, type);
    return update(kCardholderClass, kFirstSlot, 0x8000, type);
}

int OmciManagedEntitiesCore::updateVoipLineStatus(unsigned short instance, VoipLineStatusData data)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    update(kVoipLineStatusClass, instance, 0x8000, data.VoipCodecUsed);
    update(kVoipLineStatusClass, instance, 0x4000, data.VoipVoiceServerStatus);
    update(kVoipLineStatusClass, instance, 0x2000, data.VoipPortSessionType);
    update(kVoipLineStatusClass, instance, 0x100, data.VoipLineState);
    return update(kVoipLineStatusClass, instance, 0x80, data.EmergencyCallStatus);
}

int OmciManagedEntitiesCore::updatePptpPotsUniAttributes(unsigned short instance, pptpPotsUniGetAttr attributes)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    update(kPptpPotsUniClass, instance, 0x8000, attributes.AdministrativeState);
    update(kPptpPotsUniClass, instance, 0x4000, attributes.Deprecated);
    update(kPptpPotsUniClass, instance, 0x2000, attributes.Arc);
    update(kPptpPotsUniClass, instance, 0x1000, attributes.ArcIntervel);
    update(kPptpPotsUniClass, instance, 0x800, attributes.Impedence);
    update(kPptpPotsUniClass, instance, 0x400, attributes.TransmissionPath);
    update(kPptpPotsUniClass, instance, 0x200, attributes.RxGain);
    update(kPptpPotsUniClass, instance, 0x100, attributes.TxGain);
    update(kPptpPotsUniClass, instance, 0x20, attributes.PotsHoldoverTime);
    update(kPptpPotsUniClass, instance, 0x10, attributes.NominalFeedVoltage);
    update(kPptpPotsUniClass, instance, 0x8, attributes.LossOfSwitch);
    return 0;
}

int OmciManagedEntitiesCore::updatePptpPotsUniCallAttributes(unsigned short instance, pptpPotsUniGetAttr attributes)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    update(kPptpPotsUniClass, instance, 0x80, attributes.OperationalState);
    update(kPptpPotsUniClass, instance, 0x40, attributes.HookState);
    return 0;
}

int OmciManagedEntitiesCore::updateVoipConfigData(unsigned short instance, VoipConfigDataAttr attributes)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    update(kVoipConfigDataClass, instance, 0x8000, attributes.AvailableSignallingProtocols);
    update(kVoipConfigDataClass, instance, 0x4000, attributes.SignallingProtocolUsed);
    update(kVoipConfigDataClass, instance, 0x2000, attributes.AvailableVoipConfigurationMethods);
    update(kVoipConfigDataClass, instance, 0x1000, attributes.VoipConfigurationMethodUsed);
    update(kVoipConfigDataClass, instance, 0x800, attributes.VoipConfigurationAddressPointer);
    update(kVoipConfigDataClass, instance, 0x400, attributes.VoipConfigurationState);
    update(kVoipConfigDataClass, instance, 0x200, attributes.RetrieveProfile);
    return 0;
}

int OmciManagedEntitiesCore::updateFlexibleConfigurationStatusPortalOperState(unsigned short instance,
                                                                              unsigned char state)
{
    NRVK_LOG(6, "Instance(%hu); Operational state(%hhu)", instance, state);
    return update(kStatusPortalClass, instance, 0x800, state);
}

int OmciManagedEntitiesCore::updateTWDMUpstreamWaveLength(unsigned char channel)
{
    NRVK_LOG(6, "Upstream channel(%hhu)", channel);
    update(kTwdmChannelClass, twdmChannelInstance(channel), 0x1000, channel);
    return 0;
}

int OmciManagedEntitiesCore::updateTWDMDownstreamWaveLength(unsigned char channel)
{
    NRVK_LOG(6, "Downstream channel(%hhu)", channel);
    const unsigned short operational = twdmChannelInstance(channel);
    update(kTwdmChannelClass, operational, 0x2000, channel);
    update(kTwdmChannelClass, operational, 0x8000, true);
    update(kTwdmChannelClass, operational, 0x4000, true);

    // One channel is operational; any number may stay active.
    unsigned short instance = 0;
    const OmciMe* channels = OmciMeFactory::getInstance()->getManagedEntity(kTwdmChannelClass);
    int found = channels != nullptr ? channels->getFirstManagedEntityInstance(&instance) : -1;
    while (found == 0) {
        if (instance != operational) {
            update(kTwdmChannelClass, instance, 0x4000, false);
        }
        found = channels->getNextManagedEntityInstance(&instance);
    }
    return 0;
}

int OmciManagedEntitiesCore::updateTwdmChannel(unsigned short instance, TwdmChannel channel)
{
    NRVK_LOG(6, "Managed entity instance(%hu)", instance);
    update(kTwdmChannelClass, instance, 0x8000, channel.ActiveChannelIndication);
    update(kTwdmChannelClass, instance, 0x4000, channel.OperationalChannelIndication);
    update(kTwdmChannelClass, instance, 0x2000, channel.DownstreamWavelengthChannel);
    update(kTwdmChannelClass, instance, 0x1000, channel.UpstreamWavelengthChannel);
    return 0;
}

int OmciManagedEntitiesCore::updateIpHostConfigDataMEs_CurrentIpAddress(std::string address, std::string netmask,
                                                                        std::string gateway) const
{
    NRVK_LOG(4, "Current IP address = %s", address.c_str());
    NRVK_LOG(4, "Current Netmask    = %s", netmask.c_str());
    NRVK_LOG(4, "Current Gateway    = %s", gateway.c_str());
    struct Part
    {
        const std::string& text;
        unsigned short attributeMask;
        const char* complaint;
    };
    const Part parts[] = {{address, 0x80, "Invalid IP address = %s"},
                          {netmask, 0x40, "Invalid IP netmask = %s"},
                          {gateway, 0x20, "Invalid IP gateway = %s"}};
    for (const Part& part : parts) {
        if (part.text.empty()) {
            continue;
        }
        if (const auto bytes = addressBytes(part.text)) {
            update(kIpHostClass, instanceIpHostConfigData(0), part.attributeMask, *bytes);
        } else {
            // Deliberate: operators know the report by the address that it belongs to.
            NRVK_LOG(3, part.complaint, address.c_str());
        }
    }
    return 0;
}

void OmciManagedEntitiesCore::swapSubtendedHostInstanceId(bool connected)
{
    NRVK_LOG(6, "Connected(%hhu)", connected);
    OmciManagedEntityRegistrar* registrar = OmciManagedEntityRegistrar::getInstance();
    const nrvk::RegistrarLock lock(*registrar);
    m_IsNrvkOltConnected = connected;
    // Expanded afresh, so that the table and the board's addresses are those of this moment.
    OmciManagedEntitiesCore current(WithoutRecords{});
    if (connected) {
        struct Swap
        {
            unsigned short from;
            unsigned short to;
        };
        StartupConfigManagedEntity record;
        for (const Swap& swap : {Swap{0, 515}, Swap{1, 514}}) {
            registrar->deleteManagedEntityInstance(kIpHostClass, swap.from);
            registrar->createManagedEntityInstance(kIpHostClass, swap.to);
            current.getDefaultConfigManagedEntity(kIpHostClass, swap.to, record);
        }
    }
    current.updateIpHostConfigDataMEs();
}

int OmciManagedEntitiesCore::updateAniGOpticalSignalLevel(unsigned short instance, unsigned short level)
{
    NRVK_LOG(6, "Instance(%hu); RX Optical signal level(%hu)", instance, level);
    std::printf("Instance(%hu); RX Optical signal level(%hu)", instance, level);
    update(kAniGClass, instance, 0x40, level);
    return 0;
}

int OmciManagedEntitiesCore::updateAniGTransmitOpticalLevel(unsigned short instance, unsigned short level)
{
    NRVK_LOG(6, "Instance(%hu); TX Optical signal level(%hu)", instance, level);
    std::printf("Instance(%hu); TX Optical signal level(%hu)", instance, level);
    update(kAniGClass, instance, 0x4, level);
    return 0;
}
