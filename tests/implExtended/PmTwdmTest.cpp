// TWDM channels, their PM and the system profile.
#include "OmciManagedEntitiesCore.h"
#include "OmciMeTWDMChannelIf.h"
#include "OmciMeTWDMSystemProfileIf.h"
#include "PmTest.h"

namespace {

constexpr unsigned short kOmciPm = 65414;
constexpr unsigned short kChannel = 65402;
constexpr unsigned short kProfile = 65401;
constexpr unsigned short kActive = 0x8000;
constexpr unsigned short kOperational = 0x4000;
constexpr unsigned short kDownstreamWavelength = 0x2000;
constexpr unsigned short kUpstreamWavelength = 0x1000;

class TwdmPm : public PmTest
{};

TEST_F(TwdmPm, EachCounterOfAGetRefreshes)
{
    create(kOmciPm, kInstance);
    for (const unsigned short mask : {0x8000, 0x4000, 0x2000, 0x1000, 0x0800}) {
        get(kOmciPm, kInstance, mask);
    }
    EXPECT_EQ(calls, Calls(3, callText("refreshTwdmOmciPm", 9, kInstance)));
}

TEST_F(TwdmPm, RefreshTakesTheActionAsItCame)
{
    create(kOmciPm, kInstance);
    for (const EnumOmciAction action : kActions) {
        EXPECT_EQ(callsOfGet(kOmciPm, kFirstCounter, action), Calls{callText("refreshTwdmOmciPm", action, kInstance)});
    }
}

TEST_F(TwdmPm, FeedReachesOnlyWhatTheHostHasEntered)
{
    create(kOmciPm, kInstance);
    OmciManagedEntitiesCore().updateTwdmOmciStats(kInstance, {12, 1, 2, 3});
    EXPECT_EQ(getNumber(kOmciPm, kInstance, kIntervalEndTime), 0U);
    enterClass(kOmciPm, {kInstance});
    OmciManagedEntitiesCore().updateTwdmOmciStats(kInstance, {12, 1, 2, 3});
    EXPECT_EQ(getNumber(kOmciPm, kInstance, kIntervalEndTime), 12U);
    EXPECT_EQ(getNumber(kOmciPm, kInstance, 0x0800), 3U);
    OmciManagedEntitiesCore().updateTwdmOmciStats(kInstance, {13, 1, 2, 3});
    EXPECT_EQ(getNumber(kOmciPm, kInstance, kIntervalEndTime), 13U);
}

TEST_F(TwdmPm, IntervalEndTimeIsTheFeedsAndNotTheSharedCounter)
{
    OmciMeEthernetFrameExtendedPMCommonImplExtended::setIntervalCounter(99);
    create(kOmciPm, kInstance);
    EXPECT_EQ(getNumber(kOmciPm, kInstance, kIntervalEndTime), 0U);
}

TEST_F(TwdmPm, RefreshThatFeedsIsReadInTheSameGet)
{
    create(kOmciPm, kInstance);
    enterClass(kOmciPm, {kInstance});
    ON_CALL(hardware, refreshTwdmOmciPm).WillByDefault([](EnumOmciAction action, unsigned short instance) {
        const unsigned int count = action == OMCI_ACTION_GET ? 100 : 7;
        return OmciManagedEntitiesCore().updateTwdmOmciStats(instance, {1, count, 0, 0});
    });
    EXPECT_EQ(getNumber(kOmciPm, kInstance, kFirstCounter), 100U);
    EXPECT_EQ(getNumber(kOmciPm, kInstance, kFirstCounter, OMCI_ACTION_GET_CURRENT_DATA), 7U);
}

class TwdmChannels : public PmTest
{
protected:
    static constexpr unsigned short kChannels[] = {1024, 1025, 1026, 1027};

    void SetUp() override
    {
        for (const unsigned short channel : kChannels) {
            OmciMeTWDMChannelIf::createManagedEntityInstance(channel, false);
        }
        enterClass(kChannel, {1024, 1025, 1026, 1027});
        calls.clear();
        log.clear();
    }

    static std::vector<unsigned long long> valuesOf(unsigned short mask)
    {
        std::vector<unsigned long long> values;
        for (const unsigned short channel : kChannels) {
            values.push_back(getNumber(kChannel, channel, mask));
        }
        return values;
    }

    using Values = std::vector<unsigned long long>;
};

TEST_F(TwdmChannels, GetOfAllFourAttributesRefreshesFourTimes)
{
    for (const EnumOmciAction action : kActions) {
        calls.clear();
        for (const unsigned short mask : {kActive, kOperational, kDownstreamWavelength, kUpstreamWavelength}) {
            get(kChannel, 1025, mask, action);
        }
        EXPECT_EQ(calls, Calls(4, callText("refreshTwdmChannel", action, 1025)));
    }
}

TEST_F(TwdmChannels, RefreshThatReportsIsReadInTheSameGet)
{
    ON_CALL(hardware, refreshTwdmChannel).WillByDefault([](EnumOmciAction, unsigned short instance) {
        return OmciManagedEntitiesCore().updateTwdmChannel(instance, {1, 1, 3, 4});
    });
    EXPECT_EQ(getNumber(kChannel, 1026, kActive), 1U);
    EXPECT_EQ(getNumber(kChannel, 1026, kOperational), 1U);
    EXPECT_EQ(getNumber(kChannel, 1026, kDownstreamWavelength), 3U);
    EXPECT_EQ(getNumber(kChannel, 1026, kUpstreamWavelength), 4U);
}

TEST_F(TwdmChannels, DownstreamReportMakesOneChannelOperational)
{
    for (const unsigned short channel : kChannels) {
        OmciManagedEntitiesCore().updateTwdmChannel(channel, {1, 1, 9, 9});
    }
    OmciManagedEntitiesCore().updateTWDMDownstreamWaveLength(1);
    EXPECT_EQ(valuesOf(kActive), (Values{1, 1, 1, 1}));
    EXPECT_EQ(valuesOf(kOperational), (Values{0, 1, 0, 0}));
    EXPECT_EQ(valuesOf(kDownstreamWavelength), (Values{9, 1, 9, 9}));
    EXPECT_EQ(valuesOf(kUpstreamWavelength), (Values{9, 9, 9, 9}));
}

TEST_F(TwdmChannels, UpstreamReportWritesOneAttributeOfOneChannel)
{
    OmciManagedEntitiesCore().updateTWDMUpstreamWaveLength(2);
    EXPECT_EQ(valuesOf(kUpstreamWavelength), (Values{255, 255, 2, 255}));
    EXPECT_EQ(valuesOf(kDownstreamWavelength), (Values{255, 255, 255, 255}));
    EXPECT_EQ(valuesOf(kActive), (Values{0, 0, 0, 0}));
    EXPECT_EQ(valuesOf(kOperational), (Values{0, 0, 0, 0}));
}

TEST_F(TwdmChannels, SetAppliesNothing)
{
    EXPECT_EQ(set(kChannel, 1024, kActive, 1), 0);
    EXPECT_EQ(adapter(kChannel).applyConfigurationToHardwareForSet(1024), -1);
    EXPECT_EQ(calls, Calls());
}

TEST_F(TwdmChannels, WithoutHardwareTheStoreIsRead)
{
    removeHardware();
    EXPECT_EQ(getNumber(kChannel, 1024, kUpstreamWavelength), 255U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

class TwdmProfile : public PmTest
{
protected:
    static constexpr unsigned short kId = 1024;

    struct Row
    {
        unsigned short mask;
        const char* operation;
    };
    /// In the order of the record that apply hands over.
    static constexpr Row kRows[] = {
        {0x4000, "setTwdmChannelPartitionIndex"},     {0x2000, "setTwdmChannelPartitionWaiverTimer"},
        {0x1000, "setTwdmLodsReinitializationTimer"}, {0x0800, "setTwdmLodsProtectionTimer"},
        {0x0400, "setTwdmDownstreamTuningTimer"},     {0x0200, "setTwdmUpstreamTuningTimer"}};

    void SetUp() override
    {
        OmciMeTWDMSystemProfileIf::createManagedEntityInstance(kId, false);
        calls.clear();
        log.clear();
    }
};

TEST_F(TwdmProfile, EachValueReachesItsOwnOperation)
{
    unsigned int value = 70;
    for (const Row& row : kRows) {
        ++value;
        calls.clear();
        EXPECT_EQ(set(kProfile, kId, row.mask, value), 0);
        EXPECT_EQ(calls, Calls{callText(row.operation, kId, value)});
        EXPECT_EQ(getNumber(kProfile, kId, row.mask), value);
    }
}

TEST_F(TwdmProfile, ValueIsStoredBeforeTheHardwareIsTold)
{
    unsigned long long stored = 0;
    ON_CALL(hardware, setTwdmLodsProtectionTimer).WillByDefault([&stored](unsigned short instance, unsigned int) {
        stored = getNumber(kProfile, instance, 0x0800);
        return 0;
    });
    set(kProfile, kId, 0x0800, 123456);
    EXPECT_EQ(stored, 123456U);
}

TEST_F(TwdmProfile, ApplyHandsOverAllSixInOrder)
{
    unsigned int value = 10;
    for (const Row& row : kRows) {
        set(kProfile, kId, row.mask, ++value);
    }
    calls.clear();
    EXPECT_EQ(adapter(kProfile).applyConfigurationToHardwareForSet(kId), 0);
    EXPECT_EQ(calls, Calls{"applyTwdmSystemProfile(11,12,13,14,15,16)"});
}

TEST_F(TwdmProfile, ApplyOfAFreshProfileHandsOverTheDefaults)
{
    EXPECT_EQ(adapter(kProfile).applyConfigurationToHardwareForSet(kId), 0);
    EXPECT_EQ(calls, Calls{"applyTwdmSystemProfile(0,300,800,800,40000,16000)"});
}

TEST_F(TwdmProfile, LocationLabelsStayInTheStore)
{
    const std::vector<unsigned char> label(24, 'x');
    for (const unsigned short mask : {0x0100, 0x0080}) {
        EXPECT_EQ(set(kProfile, kId, mask, label), 0);
        EXPECT_EQ(get(kProfile, kId, mask), label);
    }
    EXPECT_EQ(calls, Calls());
}

TEST_F(TwdmProfile, WithoutHardwareValuesAreStored)
{
    removeHardware();
    for (const Row& row : kRows) {
        EXPECT_EQ(set(kProfile, kId, row.mask, 42), 0);
        EXPECT_EQ(getNumber(kProfile, kId, row.mask), 42U);
    }
    EXPECT_EQ(adapter(kProfile).applyConfigurationToHardwareForSet(kId), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), std::size(kRows) + 1);
}

TEST_F(TwdmProfile, EraseReachesNoHardware)
{
    OmciMeTWDMSystemProfileIf::eraseAllManagedEntityInstance();
    EXPECT_EQ(calls, Calls());
    EXPECT_EQ(getNumber(kProfile, kId, 0x2000), 300U);
}

}  // namespace
