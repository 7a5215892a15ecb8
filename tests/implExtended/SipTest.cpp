// SIP agent with its master, SIP users, dial plans and application services.
#include "LibraryTest.h"
#include "OmciMe.h"
#include "OmciMeSipAgentConfigDataIf.h"
#include "OmciMeSipUserDataIf.h"
#include "OmciMeVoipAppServiceProfileIf.h"
#include "implExtended/OmciMeNetworkDialPlanTableImplExtended.h"
#include "implExtended/OmciMeSipAgentConfigDataImplExtended.h"
#include "implExtended/OmciMeSipUserDataImplExtended.h"

using ::testing::_;
using ::testing::Mock;

namespace {

constexpr unsigned short kSipAgent = 150;
constexpr unsigned short kSipUser = 153;
constexpr unsigned short kDialPlan = 145;
constexpr unsigned short kAppServiceProfile = 146;

using Bytes = std::vector<unsigned char>;

class SipAgent : public LibraryTest
{
protected:
    static constexpr unsigned short kMaster = 5;
    static constexpr unsigned short kSecond = 9;
    static constexpr unsigned short kProxy = 0x8000;
    static constexpr unsigned short kComparedAttributes[] = {0x8000, 0x4000, 0x2000, 0x1000, 0x0800, 0x0400,
                                                             0x0200, 0x0100, 0x0040, 0x0008, 0x0004, 0x0002};
    static constexpr unsigned short kSipStatus = 0x0080;
    static constexpr unsigned short kSoftswitch = 0x0020;
    static constexpr unsigned short kSipResponseTable = 0x0010;

    void SetUp() override { master = agent(kMaster); }

    static OmciMeSipAgentConfigDataIf* agent(unsigned short instance)
    {
        EXPECT_EQ(create(kSipAgent, instance), 0);
        return OmciMeSipAgentConfigDataIf::getManagedEntityInstance(instance);
    }

    static int apply(unsigned short instance)
    {
        return adapter(kSipAgent).applyConfigurationToHardwareForSet(instance);
    }

    static std::string shouldNeverHappen(unsigned short instance)
    {
        return "Apply call for SipAgentInstance  other than first Instance should never happen  "
               "Managed Entity Instance (" +
               std::to_string(instance) + ")";
    }

    OmciMeSipAgentConfigDataIf* master = nullptr;
};

TEST_F(SipAgent, ChangeOfTheOnlyInstanceProvisionsIt)
{
    EXPECT_CALL(hardware, provisionSipAgent(master)).Times(1);
    EXPECT_EQ(set(kSipAgent, kMaster, kProxy, 100), 0);
    EXPECT_EQ(apply(kMaster), 0);
    EXPECT_TRUE(log.has(6, "ApplyConfig of Sip Agent Data for Managed Entity Instance (5),  first Managed Entity "
                           "Instance (5), second Managed Entity Instance (0)"));
}

TEST_F(SipAgent, EachOfTheTwelveComparedAttributesProvisions)
{
    for (const unsigned short mask : kComparedAttributes) {
        EXPECT_CALL(hardware, provisionSipAgent(master)).Times(1);
        EXPECT_EQ(set(kSipAgent, kMaster, mask, 0x21), 0);
        EXPECT_EQ(apply(kMaster), 0);
        EXPECT_EQ(getNumber(kSipAgent, kMaster, mask), 0x21U);
        EXPECT_TRUE(Mock::VerifyAndClearExpectations(&hardware)) << std::hex << mask;
    }
}

TEST_F(SipAgent, ValueSetAndTakenBackInOneSetProvisionsStill)
{
    for (const unsigned short mask : kComparedAttributes) {
        const unsigned long long before = getNumber(kSipAgent, kMaster, mask);
        EXPECT_CALL(hardware, provisionSipAgent(master)).Times(1);
        set(kSipAgent, kMaster, mask, 0x21);
        set(kSipAgent, kMaster, mask, before);
        EXPECT_EQ(apply(kMaster), 0);
        EXPECT_TRUE(Mock::VerifyAndClearExpectations(&hardware)) << std::hex << mask;
    }
}

TEST_F(SipAgent, SetWithTheSameValuesCausesNoCall)
{
    EXPECT_CALL(hardware, provisionSipAgent(master)).Times(1);
    set(kSipAgent, kMaster, kProxy, 100);
    apply(kMaster);
    EXPECT_FALSE(log.has(7, shouldNeverHappen(kMaster)));
    set(kSipAgent, kMaster, kProxy, 100);
    EXPECT_EQ(apply(kMaster), 0);
    EXPECT_EQ(log.count(7, shouldNeverHappen(kMaster)), 1U);
}

TEST_F(SipAgent, FreshAgentNeedsNoCall)
{
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    EXPECT_EQ(apply(kMaster), 0);
    EXPECT_TRUE(log.has(7, shouldNeverHappen(kMaster)));
}

TEST_F(SipAgent, ChangeOfTheSecondInstanceProvisionsTheMaster)
{
    agent(kSecond);
    EXPECT_CALL(hardware, provisionSipAgent(master)).Times(1);
    set(kSipAgent, kSecond, kProxy, 100);
    EXPECT_EQ(apply(kSecond), 0);
    EXPECT_TRUE(log.has(6, "ApplyConfig of Sip Agent Data for Managed Entity Instance (9),  first Managed Entity "
                           "Instance (5), second Managed Entity Instance (9)"));
}

TEST_F(SipAgent, WithTwoInstancesAChangeOfTheFirstCausesNoCall)
{
    agent(kSecond);
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    set(kSipAgent, kMaster, kProxy, 100);
    EXPECT_EQ(apply(kMaster), 0);
    EXPECT_TRUE(log.has(7, shouldNeverHappen(kMaster)));
}

TEST_F(SipAgent, ChangeHeldBackByASecondInstanceIsNotMadeUpForLater)
{
    agent(kSecond);
    set(kSipAgent, kMaster, kProxy, 100);
    apply(kMaster);
    adapter(kSipAgent).deleteManagedEntityInstance(kSecond, true);
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    EXPECT_EQ(apply(kMaster), 0) << "the shadow has followed the store";
}

TEST_F(SipAgent, ThirdInstanceProvisionsNothing)
{
    agent(kSecond);
    agent(12);
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    set(kSipAgent, 12, kProxy, 100);
    EXPECT_EQ(apply(12), 0);
    EXPECT_TRUE(log.has(7, shouldNeverHappen(12)));
}

TEST_F(SipAgent, LowerInstanceCreatedLaterBecomesTheMaster)
{
    OmciMeSipAgentConfigDataIf* lower = agent(0);
    EXPECT_CALL(hardware, provisionSipAgent(lower)).Times(1);
    set(kSipAgent, kMaster, kProxy, 100);
    EXPECT_EQ(apply(kMaster), 0);
}

TEST_F(SipAgent, LastInstanceIsAnAgentLikeAnyOther)
{
    agent(0xFFFF);
    EXPECT_CALL(hardware, provisionSipAgent(master)).Times(1);
    set(kSipAgent, 0xFFFF, kProxy, 100);
    EXPECT_EQ(apply(0xFFFF), 0);
}

TEST_F(SipAgent, ChangeOfSoftswitchAloneNeverProvisions)
{
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    const Bytes first = {'a', 'b', 0, 'd'};
    EXPECT_EQ(set(kSipAgent, kMaster, kSoftswitch, first), 0);
    EXPECT_EQ(apply(kMaster), 0);
    EXPECT_EQ(get(kSipAgent, kMaster, kSoftswitch), first);
    EXPECT_EQ(set(kSipAgent, kMaster, kSoftswitch, Bytes{'w', 'x', 'y', 'z'}), 0);
    EXPECT_EQ(apply(kMaster), 0);
    const auto* extended = dynamic_cast<const OmciMeSipAgentConfigDataImplExtended*>(master);
    ASSERT_NE(extended, nullptr);
    EXPECT_EQ(extended->getOldSoftswitch(), (nrvk::TableRow<4>{'a', 'b', 0, 0})) << "cut at its first zero byte";
}

TEST_F(SipAgent, RowsOfTheResponseTableAreOnlyStored)
{
    EXPECT_CALL(hardware, provisionSipAgent(_)).Times(0);
    EXPECT_EQ(set(kSipAgent, kMaster, kSipResponseTable, Bytes{1, 2, 3, 4, 5}), 0);
    EXPECT_EQ(apply(kMaster), 0);
    EXPECT_EQ(getNumber(kSipAgent, kMaster, kSipResponseTable), 1U);
}

TEST_F(SipAgent, StatusIsReadFromTheStore)
{
    master->setSipStatus(3);
    EXPECT_EQ(getNumber(kSipAgent, kMaster, kSipStatus, OMCI_ACTION_GET_CURRENT_DATA), 3U);
    EXPECT_TRUE(log.has(6, " getSipStatus getaction(28)"));
}

TEST_F(SipAgent, MissingHardwareIsLoggedAndAnsweredWithSuccess)
{
    removeHardware();
    set(kSipAgent, kMaster, kProxy, 100);
    EXPECT_EQ(apply(kMaster), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(adapter(kSipAgent).deleteManagedEntityInstance(kMaster, true), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

TEST_F(SipAgent, DeleteOfTheFirstInstanceRemovesTheAgent)
{
    EXPECT_CALL(hardware, removeSipAgent(master)).Times(1);
    EXPECT_EQ(adapter(kSipAgent).deleteManagedEntityInstance(kMaster, true), 0);
    EXPECT_TRUE(log.has(6, "EraseConfig of Sip Agent Data for Managed Entity Instance (5), first Managed Entity "
                           "Instance (5)"));
}

TEST_F(SipAgent, DeleteOfTheSecondInstanceRemovesNothing)
{
    agent(kSecond);
    EXPECT_CALL(hardware, removeSipAgent(_)).Times(0);
    EXPECT_EQ(adapter(kSipAgent).deleteManagedEntityInstance(kSecond, true), 0);
    EXPECT_TRUE(log.has(6, "EraseConfig of Sip Agent Data for Managed Entity Instance (9), first Managed Entity "
                           "Instance (5)"));
    EXPECT_TRUE(log.has(7, "erase config call for SipAgentInstance  other than first Instance should never happen  "
                           "Managed Entity Instance (9)"));
    Mock::VerifyAndClearExpectations(&hardware);
}

class SipUser : public LibraryTest
{
protected:
    static constexpr unsigned short kUser = 2;

    void SetUp() override
    {
        ASSERT_EQ(create(kSipUser, kUser), 0);
        user = OmciMeSipUserDataIf::getManagedEntityInstance(kUser);
    }

    const OmciMeSipUserDataImplExtended::LastSet& lastSet() const
    {
        return dynamic_cast<const OmciMeSipUserDataImplExtended&>(*user).lastSet();
    }

    OmciMeSipUserDataIf* user = nullptr;
};

TEST_F(SipUser, SetsAreStoredAndRecordedAndReachNoHardware)
{
    EXPECT_EQ(lastSet().VoicemailSubscriptionExpirationTime, 3600U);
    EXPECT_EQ(lastSet().ReleaseTimer, 10);
    EXPECT_EQ(lastSet().ReceiverOffHookTimer, 15);
    unsigned int value = 1;
    for (const unsigned int mask :
         {0x8000U, 0x4000U, 0x1000U, 0x0800U, 0x0400U, 0x0200U, 0x0100U, 0x0080U, 0x0040U, 0x0020U, 0x0010U}) {
        EXPECT_EQ(set(kSipUser, kUser, static_cast<unsigned short>(mask), value), 0);
        EXPECT_EQ(getNumber(kSipUser, kUser, static_cast<unsigned short>(mask)), value);
        ++value;
    }
    EXPECT_EQ(lastSet().SipAgentPointer, 1);
    EXPECT_EQ(lastSet().UserPartAor, 2);
    EXPECT_EQ(lastSet().UsernameAndPassword, 3);
    EXPECT_EQ(lastSet().VoicemailServerSipUri, 4);
    EXPECT_EQ(lastSet().VoicemailSubscriptionExpirationTime, 5U);
    EXPECT_EQ(lastSet().NetworkDialPlanPointer, 6);
    EXPECT_EQ(lastSet().ApplicationServicesProfilePointer, 7);
    EXPECT_EQ(lastSet().FeatureCodePointer, 8);
    EXPECT_EQ(lastSet().PptpPointer, 9);
    EXPECT_EQ(lastSet().ReleaseTimer, 10);
    EXPECT_EQ(lastSet().ReceiverOffHookTimer, 11);
    log.clear();
    EXPECT_EQ(adapter(kSipUser).applyConfigurationToHardwareForSet(kUser), 0);
    EXPECT_TRUE(log.has(6, "Managed Entity Instance(2)"));
}

TEST_F(SipUser, DisplayNameIsStoredWholeAndRecordedAsText)
{
    const Bytes whole(25, 'n');
    EXPECT_EQ(set(kSipUser, kUser, 0x2000, whole), 0);
    EXPECT_EQ(get(kSipUser, kUser, 0x2000), whole);
    EXPECT_EQ(lastSet().SipDisplayName, std::string(25, 'n')) << "never past the attribute";
    Bytes cut(25, 'm');
    cut[4] = 0;
    EXPECT_EQ(set(kSipUser, kUser, 0x2000, cut), 0);
    EXPECT_EQ(get(kSipUser, kUser, 0x2000), cut);
    EXPECT_EQ(lastSet().SipDisplayName, "mmmm");
}

TEST_F(SipUser, DeleteRemovesTheUserFromTheHardware)
{
    log.clear();
    EXPECT_CALL(hardware, removeSipUser(user)).Times(1);
    EXPECT_EQ(adapter(kSipUser).deleteManagedEntityInstance(kUser, true), 0);
    EXPECT_TRUE(log.has(4, "Managed Entity Instance(2)"));
}

TEST_F(SipUser, UserThatTheStoreDoesNotHoldIsNotRemoved)
{
    EXPECT_CALL(hardware, removeSipUser(_)).Times(0);
    OmciMeSipUserDataImplExtended stranger(77, true);
    EXPECT_EQ(stranger.eraseConfigurationFromHardware(), 0);
}

TEST_F(SipUser, MissingHardwareIsLoggedOnDelete)
{
    removeHardware();
    EXPECT_EQ(adapter(kSipUser).deleteManagedEntityInstance(kUser, true), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(SipUser, KeepsNoAlarmsAndTakesAnyAlarmNumber)
{
    OmciMe& me = adapter(kSipUser);
    EXPECT_EQ(me.updateAlarmsBitmap(kUser, 0, true), 0);
    EXPECT_NO_THROW(EXPECT_EQ(me.updateAlarmsBitmap(kUser, 223, true), 0));
    std::bitset<223> bitmap;
    EXPECT_TRUE(me.getAlarmsBitmap(kUser, bitmap));
    EXPECT_TRUE(bitmap.none());
    bitmap.set(17);
    EXPECT_TRUE(me.getAlarmsBitmap(kUser, bitmap));
    EXPECT_TRUE(bitmap.test(17)) << "the caller's bitmap is left as it is";
}

class NetworkDialPlan : public LibraryTest
{
protected:
    static constexpr unsigned short kPlan = 1;
    static constexpr unsigned short kFormat = 0x0800;
    static constexpr unsigned short kTable = 0x0400;

    void SetUp() override { ASSERT_EQ(create(kDialPlan, kPlan), 0); }

    static const std::vector<nrvk::TableRow<30>>& rows()
    {
        return dynamic_cast<const OmciMeNetworkDialPlanTableImplExtended&>(
                   *OmciMeNetworkDialPlanTableIf::getManagedEntityInstance(kPlan))
            .getRows();
    }
};

TEST_F(NetworkDialPlan, NumberAndMaximumSizeReadAsZero)
{
    EXPECT_EQ(set(kDialPlan, kPlan, 0x4000, 200), 0);
    OmciMeNetworkDialPlanTableIf::getManagedEntityInstance(kPlan)->setDialPlanNumber(3);
    EXPECT_EQ(getNumber(kDialPlan, kPlan, 0x4000), 0U);
    EXPECT_EQ(getNumber(kDialPlan, kPlan, 0x8000), 0U);
}

TEST_F(NetworkDialPlan, FormatAbove3BecomesZeroWithoutAnError)
{
    for (unsigned int format = 0; format < 256; ++format) {
        EXPECT_EQ(set(kDialPlan, kPlan, kFormat, 2), 0);
        EXPECT_EQ(set(kDialPlan, kPlan, kFormat, format), 0);
        EXPECT_EQ(getNumber(kDialPlan, kPlan, kFormat), format > 3 ? 0 : format);
    }
    EXPECT_THAT(log.texts(3), ::testing::IsEmpty());
}

TEST_F(NetworkDialPlan, RowIsCutAtItsFirstZeroByte)
{
    Bytes row(30, 0x31);
    row[5] = 0;
    EXPECT_EQ(set(kDialPlan, kPlan, kTable, row), 0);
    ASSERT_EQ(rows().size(), 1U);
    EXPECT_EQ(rows()[0], (nrvk::TableRow<30>{0x31, 0x31, 0x31, 0x31, 0x31}));
    EXPECT_TRUE(log.has(6, "Row(3131313131" + std::string(50, '0') + ")"));
}

TEST_F(NetworkDialPlan, WholeRowIsKept)
{
    const Bytes row(30, 0xFE);
    EXPECT_EQ(set(kDialPlan, kPlan, kTable, row), 0);
    ASSERT_EQ(rows().size(), 1U);
    EXPECT_EQ(Bytes(rows()[0].begin(), rows()[0].end()), row);
}

TEST_F(NetworkDialPlan, RowsAreOnlyAddedBeyondTheMaximumSizeToo)
{
    EXPECT_EQ(set(kDialPlan, kPlan, 0x4000, 1), 0);
    for (unsigned int i = 0; i < 300; ++i) {
        EXPECT_EQ(set(kDialPlan, kPlan, kTable, Bytes(30, 1)), 0);
    }
    EXPECT_EQ(rows().size(), 300U);
    EXPECT_EQ(getNumber(kDialPlan, kPlan, kTable), 300U);
}

TEST_F(NetworkDialPlan, MibResetEmptiesThePlanOfTheOnu)
{
    OmciMeNetworkDialPlanTableIf::deleteManagedEntityInstance(kPlan, true);
    OmciMeNetworkDialPlanTableIf::createManagedEntityInstance(kPlan, false);
    set(kDialPlan, kPlan, kTable, Bytes(30, 1));
    adapter(kDialPlan).eraseAllManagedEntityInstances();
    EXPECT_EQ(rows().size(), 0U);
    EXPECT_EQ(getNumber(kDialPlan, kPlan, kTable), 0U);
}

TEST_F(NetworkDialPlan, HooksSucceed)
{
    EXPECT_EQ(adapter(kDialPlan).applyConfigurationToHardwareForSet(kPlan), 0);
    EXPECT_EQ(adapter(kDialPlan).deleteManagedEntityInstance(kPlan, true), 0);
}

class VoipAppServiceProfile : public LibraryTest
{};

TEST_F(VoipAppServiceProfile, SetLogsTheInstanceAndSucceeds)
{
    ASSERT_EQ(create(kAppServiceProfile, 4), 0);
    EXPECT_EQ(set(kAppServiceProfile, 4, 0x0080, 0x1234), 0);
    EXPECT_EQ(getNumber(kAppServiceProfile, 4, 0x0080), 0x1234U);
    log.clear();
    EXPECT_EQ(adapter(kAppServiceProfile).applyConfigurationToHardwareForSet(4), 0);
    EXPECT_TRUE(log.has(6, "Managed Entity Instance(4)"));
    EXPECT_EQ(adapter(kAppServiceProfile).deleteManagedEntityInstance(4, true), 0);
}

}  // namespace
