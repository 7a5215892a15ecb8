#ifndef NRVK_IMPL_EXTENDED_OMCIMEVOIPAPPSERVICEPROFILEIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEVOIPAPPSERVICEPROFILEIMPLEXTENDED_H

#include "impl/OmciMeVoipAppServiceProfileImpl.h"
#include "implExtended/VoiceEntity.h"

/// VoIP application service profile (G.988 9.9.8, class 146): its values stay in the store, unchecked.
class OmciMeVoipAppServiceProfileImplExtended : public nrvk::VoiceEntity<OmciMeVoipAppServiceProfileImpl>
{
public:
    using VoiceEntity::VoiceEntity;
};

#endif
