#ifndef NRVK_IMPL_EXTENDED_VOICE_ENTITY_H
#define NRVK_IMPL_EXTENDED_VOICE_ENTITY_H

#include "impl/Log.h"
#include "implExtended/NoHardware.h"

namespace nrvk {

/// An entity of the voice service whose hooks call no hardware but log the instance. A class derived from it overrides
/// the hook, and the setters and getters, that have more to do.
template <typename Impl, int ApplyResult = 0>
class VoiceEntity : public NoHardware<Impl, ApplyResult>
{
public:
    using NoHardware<Impl, ApplyResult>::NoHardware;

    int applyConfigurationToHardwareForSet() override
    {
        NRVK_LOG(6, "Managed Entity Instance(%hu)", this->m_ManagedEntityInstance);
        return NoHardware<Impl, ApplyResult>::applyConfigurationToHardwareForSet();
    }

    int eraseConfigurationFromHardware() override
    {
        NRVK_LOG(6, "Managed Entity Instance(%hu)", this->m_ManagedEntityInstance);
        return NoHardware<Impl, ApplyResult>::eraseConfigurationFromHardware();
    }
};

}  // namespace nrvk

#endif
