#ifndef NRVK_IMPL_EXTENDED_OMCIMEVOIPVOICECTPIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEVOIPVOICECTPIMPLEXTENDED_H

#include "impl/OmciMeVoipVoiceCTPImpl.h"
#include "implExtended/VoiceEntity.h"

/// VoIP voice CTP (G.988 9.9.4, class 139): ties a line to its user, port and media profile. Its adapter provisions the
/// line; deleting it deprovisions nothing, that comes with the SIP user and the media profile.
class OmciMeVoipVoiceCTPImplExtended : public nrvk::VoiceEntity<OmciMeVoipVoiceCTPImpl>
{
public:
    using VoiceEntity::VoiceEntity;

    /// 1 to 6; -1 for others.
    int setSignallingCode(unsigned char value) override;
};

#endif
