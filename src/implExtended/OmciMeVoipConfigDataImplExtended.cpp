#include "implExtended/OmciMeVoipConfigDataImplExtended.h"

#include <cstring>

#include "impl/Log.h"
#include "implExtended/Refusal.h"

namespace {

constexpr unsigned char kSelectedByOtherManagement = 255;

/// What applyVoipConfig hands over, in memory order; the bytes behind the retrieve profile are zero.
struct PackedVoipConfig
{
    unsigned char signallingProtocol;
    unsigned char configurationMethod;
    unsigned short addressPointer;
    unsigned char retrieveProfile;
    unsigned char padding[3];
};

}  // namespace

int OmciMeVoipConfigDataImplExtended::setSignallingProtocolUsed(unsigned char value)
{
    if (value > 3 && value != kSelectedByOtherManagement) {
        return nrvk::refuse("Invalid signalling protocol(%hhu)", value);
    }
    m_ShadowSignallingProtocolUsed.keep(m_SignallingProtocolUsed);
    return OmciMeVoipConfigDataImpl::setSignallingProtocolUsed(value);
}

int OmciMeVoipConfigDataImplExtended::setVoipConfigurationMethodUsed(unsigned char value)
{
    if (value > 4) {
        return nrvk::refuse("Unsupported Voip Configuration Method (%hhu)", value);
    }
    m_ShadowVoipConfigurationMethodUsed.keep(m_VoipConfigurationMethodUsed);
    return OmciMeVoipConfigDataImpl::setVoipConfigurationMethodUsed(value);
}

int OmciMeVoipConfigDataImplExtended::setVoipConfigurationAddressPointer(unsigned short value)
{
    m_ShadowVoipConfigurationAddressPointer.keep(m_VoipConfigurationAddressPointer);
    return OmciMeVoipConfigDataImpl::setVoipConfigurationAddressPointer(value);
}

int OmciMeVoipConfigDataImplExtended::applyConfigurationToHardwareForSet()
{
    bool changed = m_ShadowSignallingProtocolUsed.follow(m_SignallingProtocolUsed);
    changed |= m_ShadowVoipConfigurationMethodUsed.follow(m_VoipConfigurationMethodUsed);
    changed |= m_ShadowVoipConfigurationAddressPointer.follow(m_VoipConfigurationAddressPointer);
    m_ShadowRetrieveProfile.keep(m_RetrieveProfile);
    if (OmciHardwareIfc* hardware = nrvk::hardwareIfChanged(changed)) {
        const PackedVoipConfig packed{m_ShadowSignallingProtocolUsed.get(),
                                      m_ShadowVoipConfigurationMethodUsed.get(),
                                      m_ShadowVoipConfigurationAddressPointer.get(),
                                      m_ShadowRetrieveProfile.get(),
                                      {}};
        unsigned int words[2] = {};
        static_assert(sizeof words == sizeof packed);
        std::memcpy(words, &packed, sizeof words);
        hardware->applyVoipConfig(m_ManagedEntityInstance, words[0], words[1]);
    }
    return 0;
}

int OmciMeVoipConfigDataImplExtended::eraseConfigurationFromHardware()
{
    NRVK_LOG(6, "Managed Entity Instance(%hu)", m_ManagedEntityInstance);
    return 0;
}
