#include "implExtended/OmciMeVoiceServiceProfileImplExtended.h"

#include "impl/HexText.h"
#include "implExtended/Refusal.h"

namespace {

constexpr unsigned char kNotAvailable = 255;

}  // namespace

int OmciMeVoiceServiceProfileImplExtended::setAnnouncementType(unsigned char value)
{
    if ((value < 1 || value > 4) && value != kNotAvailable) {
        return nrvk::refuse("Invalid Announcement Type config(%hhu)", value);
    }
    return value == m_AnnouncementType ? 0 : OmciMeVoiceServiceProfileImpl::setAnnouncementType(value);
}

int OmciMeVoiceServiceProfileImplExtended::setEchoCancelInd(unsigned char value)
{
    if (value > 1) {
        return nrvk::refuse("Invalid Echo Cancel Ind Type (%hhu)", value);
    }
    return value == m_EchoCancelInd ? 0 : OmciMeVoiceServiceProfileImpl::setEchoCancelInd(value);
}

int OmciMeVoiceServiceProfileImplExtended::setTonePatternTable(const unsigned char* value)
{
    NRVK_LOG_RENDERED(6, "Row(%s)", nrvk::HexText(value, 20).get());
    return OmciMeVoiceServiceProfileImpl::setTonePatternTable(value);
}

int OmciMeVoiceServiceProfileImplExtended::setToneEventTable(const unsigned char* value)
{
    NRVK_LOG_RENDERED(6, "Row(%s)", nrvk::HexText(value, 7).get());
    return OmciMeVoiceServiceProfileImpl::setToneEventTable(value);
}

int OmciMeVoiceServiceProfileImplExtended::setRingingPatternTable(const unsigned char* value)
{
    NRVK_LOG_RENDERED(6, "Row(%s)", nrvk::HexText(value, 5).get());
    return OmciMeVoiceServiceProfileImpl::setRingingPatternTable(value);
}

int OmciMeVoiceServiceProfileImplExtended::setRingingEventTable(const unsigned char* value)
{
    NRVK_LOG_RENDERED(6, "Row(%s)", nrvk::HexText(value, 7).get());
    return OmciMeVoiceServiceProfileImpl::setRingingEventTable(value);
}
