#include "adapterExtended/OmciMeVoipVoiceCTPAdapterExtended.h"

#include "OmciMeVoipVoiceCTPIf.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

constexpr unsigned short kSignallingCodeMask = 0x1000;

}  // namespace

int OmciMeVoipVoiceCTPAdapterExtended::createManagedEntityInstance(unsigned short instance, bool createdByOlt) const
{
    OmciMeVoipVoiceCTPAdapter::createManagedEntityInstance(instance, createdByOlt);
    return 0;
}

int OmciMeVoipVoiceCTPAdapterExtended::deleteManagedEntityInstance(unsigned short instance, bool createdByOlt) const
{
    OmciMeVoipVoiceCTPAdapter::deleteManagedEntityInstance(instance, createdByOlt);
    return 0;
}

int OmciMeVoipVoiceCTPAdapterExtended::setAttribute(unsigned short instance, const attributeDefinition* definition,
                                                    const unsigned char* buffer) const
{
    OmciMeVoipVoiceCTPIf* voiceCtp = OmciMeVoipVoiceCTPIf::getManagedEntityInstance(instance);
    const int result = OmciMeVoipVoiceCTPAdapter::setAttribute(instance, definition, buffer);
    if (voiceCtp != nullptr && definition != nullptr && definition->attributeMask == kSignallingCodeMask) {
        NRVK_LOG(6, "VOIP_VOICE_CTP : Instance(%hu); LAST ATTRIBUTE : SIGNALLING CODE : Layer2Provisioning", instance);
        if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
            hardware->provisionVoipVoiceCtp(voiceCtp);
        }
    }
    return result;
}
