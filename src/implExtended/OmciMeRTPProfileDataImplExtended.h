#ifndef NRVK_IMPL_EXTENDED_OMCIMERTPPROFILEDATAIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMERTPPROFILEDATAIMPLEXTENDED_H

#include "impl/OmciMeRTPProfileDataImpl.h"
#include "implExtended/VoiceEntity.h"

/// RTP profile data (G.988 9.9.7, class 143): its values stay in the store. The four events are 0 off or 1 on; -1 for
/// others.
class OmciMeRTPProfileDataImplExtended : public nrvk::VoiceEntity<OmciMeRTPProfileDataImpl>
{
public:
    using VoiceEntity::VoiceEntity;

    int setPiggybackEvents(unsigned char value) override;
    int setToneEvents(unsigned char value) override;
    int setDtmfEvents(unsigned char value) override;
    int setCasEvents(unsigned char value) override;
};

#endif
