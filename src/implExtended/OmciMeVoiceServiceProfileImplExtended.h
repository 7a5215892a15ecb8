#ifndef NRVK_IMPL_EXTENDED_OMCIMEVOICESERVICEPROFILEIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEVOICESERVICEPROFILEIMPLEXTENDED_H

#include "impl/OmciMeVoiceServiceProfileImpl.h"
#include "implExtended/VoiceEntity.h"

/// Voice service profile (G.988 9.9.6, class 58): its values stay in the store. Rows of its tables are opaque and only
/// ever added, with no look at their index.
class OmciMeVoiceServiceProfileImplExtended : public nrvk::VoiceEntity<OmciMeVoiceServiceProfileImpl>
{
public:
    using VoiceEntity::VoiceEntity;

    /// 1 to 4, or 255 not available; -1 for others.
    int setAnnouncementType(unsigned char value) override;
    /// 0 off, 1 on; -1 for others.
    int setEchoCancelInd(unsigned char value) override;
    int setTonePatternTable(const unsigned char* value) override;
    int setToneEventTable(const unsigned char* value) override;
    int setRingingPatternTable(const unsigned char* value) override;
    int setRingingEventTable(const unsigned char* value) override;
};

#endif
