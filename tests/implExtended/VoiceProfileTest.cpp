// Media, voice service and RTP profiles; the limits of their values are in VoiceValidationTest.cpp.
#include <algorithm>

#include "LibraryTest.h"
#include "OmciMe.h"
#include "OmciMeRTPProfileDataIf.h"
#include "OmciMeVoiceServiceProfileIf.h"
#include "implExtended/OmciMeVoiceServiceProfileImplExtended.h"
#include "implExtended/OmciMeVoipMediaProfileImplExtended.h"

using ::testing::_;

namespace {

constexpr unsigned short kVoiceServiceProfile = 58;
constexpr unsigned short kVoipMediaProfile = 142;
constexpr unsigned short kRtpProfile = 143;

using Bytes = std::vector<unsigned char>;

class VoiceProfile : public LibraryTest
{
protected:
    std::size_t linesOf(const std::string& function) const
    {
        const std::vector<LogLine> lines = log.lines();
        return static_cast<std::size_t>(
            std::count_if(lines.begin(), lines.end(), [&](const LogLine& line) { return line.function == function; }));
    }
};

class VoipMediaProfile : public VoiceProfile
{};

TEST_F(VoipMediaProfile, CodecSelectionFirstOrderAccepts18AndRejects19)
{
    create(kVoipMediaProfile, 1);
    EXPECT_EQ(set(kVoipMediaProfile, 1, 0x2000, 18), 0);
    EXPECT_EQ(set(kVoipMediaProfile, 1, 0x2000, 19), -1);
    EXPECT_EQ(getNumber(kVoipMediaProfile, 1, 0x2000), 18U);
}

TEST_F(VoipMediaProfile, PacketPeriodSelectionThirdOrderTakes10To30)
{
    create(kVoipMediaProfile, 1);
    EXPECT_EQ(set(kVoipMediaProfile, 1, 0x0040, 9), -1);
    EXPECT_EQ(set(kVoipMediaProfile, 1, 0x0040, 31), -1);
    EXPECT_EQ(set(kVoipMediaProfile, 1, 0x0040, 30), 0);
    EXPECT_EQ(set(kVoipMediaProfile, 1, 0x0040, 10), 0);
}

TEST_F(VoipMediaProfile, SetReachesNoHardware)
{
    create(kVoipMediaProfile, 1);
    log.clear();
    EXPECT_EQ(adapter(kVoipMediaProfile).applyConfigurationToHardwareForSet(1), 0);
    EXPECT_TRUE(log.has(6, "Managed Entity Instance(1)"));
}

TEST_F(VoipMediaProfile, DeleteRemovesTheProfileFromTheHardware)
{
    create(kVoipMediaProfile, 1);
    EXPECT_CALL(hardware, removeVoipMediaProfile(OmciMeVoipMediaProfileIf::getManagedEntityInstance(1))).Times(1);
    EXPECT_EQ(adapter(kVoipMediaProfile).deleteManagedEntityInstance(1, true), 0);
    EXPECT_TRUE(log.has(6, "VOIP_MEDIA_PROFILE : De-provisioning : Managed Entity Instance(1)"));
    EXPECT_TRUE(log.has(6, "VOIP_MEDIA_PROFILE : De-provisioning : Off to layer2"));
}

TEST_F(VoipMediaProfile, ProfileThatTheStoreDoesNotHoldIsNotRemoved)
{
    EXPECT_CALL(hardware, removeVoipMediaProfile(_)).Times(0);
    OmciMeVoipMediaProfileImplExtended stranger(77, true);
    EXPECT_EQ(stranger.eraseConfigurationFromHardware(), 0);
    EXPECT_FALSE(log.has(6, "VOIP_MEDIA_PROFILE : De-provisioning : Off to layer2"));
}

TEST_F(VoipMediaProfile, MissingHardwareIsLoggedOnDelete)
{
    create(kVoipMediaProfile, 1);
    removeHardware();
    EXPECT_EQ(adapter(kVoipMediaProfile).deleteManagedEntityInstance(1, true), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

class VoiceServiceProfile : public VoiceProfile
{};

/// Lets the test see the rows of the four tables.
class VisibleProfile : public OmciMeVoiceServiceProfileImplExtended
{
public:
    using OmciMeVoiceServiceProfileImplExtended::m_RingingEventTable;
    using OmciMeVoiceServiceProfileImplExtended::m_RingingPatternTable;
    using OmciMeVoiceServiceProfileImplExtended::m_ToneEventTable;
    using OmciMeVoiceServiceProfileImplExtended::m_TonePatternTable;
    using OmciMeVoiceServiceProfileImplExtended::OmciMeVoiceServiceProfileImplExtended;
};

TEST_F(VoiceServiceProfile, NewEntityReadsItsDefaults)
{
    create(kVoiceServiceProfile, 1);
    EXPECT_EQ(OmciMeVoiceServiceProfileIf::getManagedEntityInstance(1)->getDtmfDigitLevels(OMCI_ACTION_GET), -32768);
    EXPECT_EQ(get(kVoiceServiceProfile, 1, 0x0400), (Bytes{0x80, 0x00}));
    EXPECT_EQ(getNumber(kVoiceServiceProfile, 1, 0x8000), 255U);
}

TEST_F(VoiceServiceProfile, AnnouncementTypeRejects0And5AndAccepts255)
{
    create(kVoiceServiceProfile, 1);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x8000, 4), 0);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x8000, 0), -1);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x8000, 5), -1);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x8000, 255), 0);
    EXPECT_EQ(getNumber(kVoiceServiceProfile, 1, 0x8000), 255U);
}

TEST_F(VoiceServiceProfile, PresentValueIsNotStoredAgain)
{
    create(kVoiceServiceProfile, 1);
    log.clear();
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x8000, 255), 0);
    EXPECT_EQ(linesOf("setAnnouncementType"), 0U);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x8000, 1), 0);
    EXPECT_EQ(linesOf("setAnnouncementType"), 1U);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x1000, 0), 0);
    EXPECT_EQ(linesOf("setEchoCancelInd"), 0U);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x1000, 1), 0);
    EXPECT_EQ(linesOf("setEchoCancelInd"), 1U);
}

TEST_F(VoiceServiceProfile, TonePatternRowSentTwiceIsThereTwice)
{
    create(kVoiceServiceProfile, 1);
    const Bytes row(20, 0x11);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x0040, row), 0);
    EXPECT_EQ(set(kVoiceServiceProfile, 1, 0x0040, row), 0);
    EXPECT_EQ(get(kVoiceServiceProfile, 1, 0x0040), (Bytes{0, 0, 0, 2}));
    EXPECT_EQ(log.count(6, "Row(1111111111111111111111111111111111111111)"), 2U);
}

TEST_F(VoiceServiceProfile, RowsOfAllTablesAreCutAtTheirFirstZeroByte)
{
    VisibleProfile profile(1, true);
    Bytes row(20, 0x22);
    EXPECT_EQ(profile.setTonePatternTable(row.data()), 0);
    EXPECT_EQ(profile.setToneEventTable(row.data()), 0);
    EXPECT_EQ(profile.setRingingPatternTable(row.data()), 0);
    EXPECT_EQ(profile.setRingingEventTable(row.data()), 0);
    row[3] = 0;
    EXPECT_EQ(profile.setTonePatternTable(row.data()), 0);
    EXPECT_EQ(profile.setToneEventTable(row.data()), 0);
    EXPECT_EQ(profile.setRingingPatternTable(row.data()), 0);
    EXPECT_EQ(profile.setRingingEventTable(row.data()), 0);

    nrvk::TableRow<20> wholePattern;
    wholePattern.fill(0x22);
    EXPECT_THAT(profile.m_TonePatternTable, ::testing::ElementsAre(wholePattern, nrvk::TableRow<20>{0x22, 0x22, 0x22}));
    const nrvk::TableRow<7> wholeEvent = {0x22, 0x22, 0x22, 0x22, 0x22, 0x22, 0x22};
    const nrvk::TableRow<7> cutEvent = {0x22, 0x22, 0x22};
    EXPECT_THAT(profile.m_ToneEventTable, ::testing::ElementsAre(wholeEvent, cutEvent));
    EXPECT_THAT(profile.m_RingingEventTable, ::testing::ElementsAre(wholeEvent, cutEvent));
    EXPECT_THAT(profile.m_RingingPatternTable, ::testing::ElementsAre(nrvk::TableRow<5>{0x22, 0x22, 0x22, 0x22, 0x22},
                                                                      nrvk::TableRow<5>{0x22, 0x22, 0x22}));
}

TEST_F(VoiceServiceProfile, HooksSucceed)
{
    create(kVoiceServiceProfile, 1);
    EXPECT_EQ(adapter(kVoiceServiceProfile).applyConfigurationToHardwareForSet(1), 0);
    EXPECT_EQ(adapter(kVoiceServiceProfile).deleteManagedEntityInstance(1, true), 0);
}

class RtpProfile : public VoiceProfile
{};

TEST_F(RtpProfile, PresentValueIsNotStoredAgain)
{
    create(kRtpProfile, 1);
    log.clear();
    const std::pair<unsigned short, const char*> setters[] = {
        {0x1000, "setPiggybackEvents"}, {0x0800, "setToneEvents"}, {0x0400, "setDtmfEvents"}, {0x0200, "setCasEvents"}};
    for (const auto& [mask, setter] : setters) {
        EXPECT_EQ(set(kRtpProfile, 1, mask, 0), 0);
        EXPECT_EQ(linesOf(setter), 0U) << setter;
        EXPECT_EQ(set(kRtpProfile, 1, mask, 1), 0);
        EXPECT_EQ(linesOf(setter), 1U) << setter;
    }
}

TEST_F(RtpProfile, HooksSucceed)
{
    create(kRtpProfile, 1);
    EXPECT_EQ(adapter(kRtpProfile).applyConfigurationToHardwareForSet(1), 0);
    EXPECT_EQ(adapter(kRtpProfile).deleteManagedEntityInstance(1, true), 0);
}

}  // namespace
