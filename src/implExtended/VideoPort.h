#ifndef NRVK_IMPL_EXTENDED_VIDEO_PORT_H
#define NRVK_IMPL_EXTENDED_VIDEO_PORT_H

#include "impl/Hardware.h"
#include "impl/Log.h"
#include "implExtended/AdministrativeState.h"
#include "implExtended/NoHardware.h"

namespace nrvk {

/// The rule that a video UNI and a video ANI share: RF output is on only while both are unlocked. A missing twin counts
/// as locked.
template <typename Impl, typename TwinIf>
class VideoPort : public NoHardware<Impl, 0>
{
public:
    using NoHardware<Impl, 0>::NoHardware;

    /// 0 unlocked, 1 locked; anything else is refused with -1.
    int setAdministrativeState(unsigned char value) override
    {
        NRVK_LOG(6, "Administrative state(%hhu)", value);
        if (value > kLocked) {
            NRVK_LOG(3, "Invalid administrative state(%hhu)", value);
            return -1;
        }
        if (value == this->m_AdministrativeState) {
            return 0;
        }
        Impl::setAdministrativeState(value);
        if (hardwareOrLog() == nullptr) {
            return 0;
        }
        push(value == kUnlocked && isTwinUnlocked() ? kUnlocked : kLocked);
        // Deliberate: an unlocked port reads enabled even while its twin keeps the RF output off.
        this->setOperationalState(value == kUnlocked ? kEnabled : kDisabled);
        return 0;
    }

    int eraseConfigurationFromHardware() override
    {
        NRVK_LOG(6, "Instance(%hu)", this->m_ManagedEntityInstance);
        push(kLocked);
        return 0;
    }

private:
    static bool isTwinUnlocked()
    {
        const TwinIf* twin = TwinIf::getFirstManagedEntityInstance();
        return twin != nullptr && twin->getAdministrativeState(OMCI_ACTION_GET) == kUnlocked;
    }

    void push(unsigned char state)
    {
        if (OmciHardwareIfc* layer = hardwareOrLog()) {
            layer->setVideoAdminState(this->m_ManagedEntityInstance, state);
        }
    }
};

}  // namespace nrvk

#endif
