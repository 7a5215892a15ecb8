// The ONU as a device, and its optical interface.
#include "Frames.h"
#include "LibraryTest.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeGemInterworkingTpIf.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeMulticastGemInterworkingTpIf.h"
#include "sandbox/Sandbox.h"

namespace {

using Texts = std::vector<std::string>;
using ::testing::_;
using ::testing::InSequence;
using ::testing::Invoke;
using ::testing::Return;

constexpr unsigned short kTransactionId = 0x1234;

class OnuG : public LibraryTest
{
protected:
    OnuG() { startUp(); }

    static void addGemPort(unsigned short ctp, unsigned short portId)
    {
        create(268, ctp);
        OmciMeGemPortNetworkCtpIf::getManagedEntityInstance(ctp)->setPortId(portId);
    }
    static void addInterworkingTp(unsigned short instance, unsigned short ctp)
    {
        create(266, instance);
        OmciMeGemInterworkingTpIf::getManagedEntityInstance(instance)->setGemPortNetworkCtpConnPointer(ctp);
    }
    static void addMulticastInterworkingTp(unsigned short instance, unsigned short ctp)
    {
        create(281, instance);
        OmciMeMulticastGemInterworkingTpIf::getManagedEntityInstance(instance)->setGemPortNetworkCtpConnPointer(ctp);
    }
};

TEST_F(OnuG, BatteryBackupReachesTheHardwareWhenItChanges)
{
    EXPECT_CALL(hardware, setBatteryBackup(1)).WillOnce(Return(-1));
    EXPECT_EQ(set(256, 0, 0x400, 1), 0);
    EXPECT_EQ(set(256, 0, 0x400, 1), 0);
    EXPECT_EQ(getNumber(256, 0, 0x400), 1U);
    EXPECT_TRUE(log.has(6, "Battery backup(1)"));
}

TEST_F(OnuG, PresentBatteryBackupMakesNoHardwareCall)
{
    EXPECT_CALL(hardware, setBatteryBackup).Times(0);
    EXPECT_EQ(set(256, 0, 0x400, 0), 0);
}

TEST_F(OnuG, BatteryBackupIsStoredWithoutHardware)
{
    removeHardware();
    log.clear();
    EXPECT_EQ(set(256, 0, 0x400, 1), 0);
    EXPECT_EQ(getNumber(256, 0, 0x400), 1U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(OnuG, EraseTakesBatteryBackupOff)
{
    EXPECT_CALL(hardware, setBatteryBackup(0)).Times(1);
    adapter(256).eraseAllManagedEntityInstances();
}

TEST_F(OnuG, EraseWithoutHardwareIsNoFault)
{
    removeHardware();
    log.clear();
    adapter(256).eraseAllManagedEntityInstances();
    EXPECT_FALSE(log.has(3, "Detected NULL pointer"));
}

TEST_F(OnuG, SetIsApplied)
{
    EXPECT_EQ(adapter(256).applyConfigurationToHardwareForSet(0), 0);
}

TEST_F(OnuG, AdministrativeStateReachesEveryGemPortUnicastFirst)
{
    addGemPort(0x0401, 1001);
    addGemPort(0x0402, 1002);
    addGemPort(0x0403, 4095);
    addMulticastInterworkingTp(0x0001, 0x0403);
    addInterworkingTp(0x0012, 0x0401);
    addInterworkingTp(0x0011, 0x0402);
    InSequence order;
    EXPECT_CALL(hardware, setGemPortAdminState(0x0011, 1002, 1)).WillOnce(Invoke([](auto...) {
        EXPECT_EQ(getNumber(256, 0, 0x200), 1U) << "stored first";
        return -1;
    }));
    EXPECT_CALL(hardware, setGemPortAdminState(0x0012, 1001, 1));
    EXPECT_CALL(hardware, setGemPortAdminState(0x0001, 4095, 1));
    EXPECT_EQ(set(256, 0, 0x200, 1), 0);
    EXPECT_TRUE(log.has(6, "Administrative state(1)"));
}

TEST_F(OnuG, SecondLockIsNoConcernOfTheHardware)
{
    addGemPort(0x0401, 1001);
    addInterworkingTp(0x0011, 0x0401);
    EXPECT_CALL(hardware, setGemPortAdminState(0x0011, 1001, 1)).Times(1);
    EXPECT_EQ(set(256, 0, 0x200, 1), 0);
    EXPECT_EQ(set(256, 0, 0x200, 1), 0);
    EXPECT_CALL(hardware, setGemPortAdminState(0x0011, 1001, 0)).Times(1);
    EXPECT_EQ(set(256, 0, 0x200, 0), 0);
}

TEST_F(OnuG, InvalidAdministrativeStateTouchesNothing)
{
    addGemPort(0x0401, 1001);
    addInterworkingTp(0x0011, 0x0401);
    EXPECT_CALL(hardware, setGemPortAdminState).Times(0);
    for (const unsigned int state : {2U, 255U}) {
        EXPECT_EQ(set(256, 0, 0x200, state), -1);
        EXPECT_TRUE(log.has(3, "Invalid administrative state(" + std::to_string(state) + ")"));
        EXPECT_EQ(getNumber(256, 0, 0x200), 0U);
    }
}

TEST_F(OnuG, MissingGemPortStopsTheWalkAfterTheStore)
{
    addGemPort(0x0401, 1001);
    addGemPort(0x0403, 1003);
    addInterworkingTp(0x0011, 0x0401);
    addInterworkingTp(0x0012, 0x0402);
    addInterworkingTp(0x0013, 0x0403);
    addMulticastInterworkingTp(0x0001, 0x0403);
    EXPECT_CALL(hardware, setGemPortAdminState(_, _, _)).Times(0);
    EXPECT_CALL(hardware, setGemPortAdminState(0x0011, 1001, 1)).Times(1);
    log.clear();
    EXPECT_EQ(set(256, 0, 0x200, 1), -1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
    EXPECT_EQ(getNumber(256, 0, 0x200), 1U);
}

TEST_F(OnuG, MissingGemPortOfAMulticastTpFailsToo)
{
    addMulticastInterworkingTp(0x0001, 0x0403);
    log.clear();
    EXPECT_EQ(set(256, 0, 0x200, 1), -1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
}

TEST_F(OnuG, AdministrativeStateWithoutHardwareSkipsEachPort)
{
    addGemPort(0x0401, 1001);
    addInterworkingTp(0x0011, 0x0401);
    addInterworkingTp(0x0012, 0x0401);
    removeHardware();
    log.clear();
    EXPECT_EQ(set(256, 0, 0x200, 1), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

TEST_F(OnuG, RebootSavesTheLogAndRestarts)
{
    OmciFrame frame = requestFrame(omci::MessageType::Reboot, 256, 0, {1});
    Sandbox::setCommandHandler([&frame](const char* /*command*/) {
        EXPECT_TRUE(frame.hasReply()) << "the reply stands first";
        return 1;
    });
    EXPECT_EQ(adapter(256).reboot(&frame), 0);
    EXPECT_EQ(frame.getReplyResult(), 0);
    EXPECT_EQ(Sandbox::commands(), (Texts{"cp /var/log/messages /home/root/.", "reboot"}));
    EXPECT_TRUE(log.has(2, "Request to reboot system accepted"));
}

TEST_F(OnuG, RebootOfAnUnknownInstanceIsRefused)
{
    OmciFrame frame = requestFrame(omci::MessageType::Reboot, 256, 1);
    EXPECT_EQ(adapter(256).reboot(&frame), -1);
    EXPECT_EQ(frame.getReplyResult(), 5);
    EXPECT_TRUE(log.has(3, "Instance(1) doesn't exists"));
    EXPECT_TRUE(Sandbox::commands().empty());
}

TEST_F(OnuG, RebootWithoutAFrameDoesNothing)
{
    log.clear();
    EXPECT_EQ(adapter(256).reboot(nullptr), -1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
    EXPECT_TRUE(Sandbox::commands().empty());
}

TEST_F(OnuG, TimeIsSynchronizedByTheHardware)
{
    OmciFrame frame = requestFrame(omci::MessageType::SynchronizeTime, 256, 0, {7, 0xE8});
    EXPECT_CALL(hardware, synchronizeTime()).WillOnce(Return(-1));
    EXPECT_EQ(adapter(256).synchronizeTime(&frame), 0);
    EXPECT_TRUE(frame.hasReply());
    EXPECT_EQ(frame.getReplyResult(), 0);
}

TEST_F(OnuG, SynchronizeTimeOfAnUnknownInstanceIsRefused)
{
    OmciFrame frame = requestFrame(omci::MessageType::SynchronizeTime, 256, 7);
    EXPECT_CALL(hardware, synchronizeTime()).Times(0);
    EXPECT_EQ(adapter(256).synchronizeTime(&frame), -1);
    EXPECT_EQ(frame.getReplyResult(), 5);
    EXPECT_TRUE(log.has(3, "Instance(7) doesn't exists"));
}

TEST_F(OnuG, SynchronizeTimeWithoutAFrameDoesNothing)
{
    EXPECT_CALL(hardware, synchronizeTime()).Times(0);
    log.clear();
    EXPECT_EQ(adapter(256).synchronizeTime(nullptr), -1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
}

TEST_F(OnuG, SynchronizeTimeWithoutHardwareIsStillAnswered)
{
    removeHardware();
    OmciFrame frame = requestFrame(omci::MessageType::SynchronizeTime, 256, 0);
    EXPECT_EQ(adapter(256).synchronizeTime(&frame), 0);
    EXPECT_EQ(frame.getReplyResult(), 0);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
}

TEST_F(OnuG, ResetWithoutAFrameEnds)
{
    // A start-up value of OLT-G that swapped the IP hosts would wait for the mutex that the reset holds.
    const std::lock_guard<std::mutex> asInAReset(OmciManagedEntityRegistrar::getInstance()->getMutex());
    EXPECT_EQ(OmciManagedEntityRegistrar::getInstance()->initializeSupportedManagedEntitiesAndInstances(), 0);
}

/// The self-test of a class: ONU-G and ANI-G differ in their words and in the hardware's operation.
struct SelfTestRule
{
    unsigned short classId;
    unsigned short instance;
    const char* word;
};

class SelfTest : public LibraryTest, public ::testing::WithParamInterface<SelfTestRule>
{
protected:
    SelfTest() { startUp(); }

    static int test(OmciFrame* frame) { return adapter(GetParam().classId).test(frame); }

    static OmciFrame frame(unsigned char selector)
    {
        return requestFrame(omci::MessageType::Test, GetParam().classId, GetParam().instance, {selector});
    }

    void expectStarts(int times)
    {
        const bool onu = GetParam().classId == 256;
        EXPECT_CALL(hardware, testOnu(kTransactionId)).Times(onu ? times : 0);
        EXPECT_CALL(hardware, testAni(kTransactionId)).Times(onu ? 0 : times);
    }
};

TEST_P(SelfTest, IsStartedWithTheTransactionId)
{
    expectStarts(1);
    OmciFrame request = frame(7);
    EXPECT_EQ(test(&request), 0);
    EXPECT_FALSE(request.hasReply()) << "the result is the host's to send";
    const std::string word = GetParam().word;
    EXPECT_TRUE(log.has(6, " Transacton ID for " + word + " Test (4660)"));
    EXPECT_TRUE(log.has(6, " calling self test from " + word + " "));
}

TEST_P(SelfTest, OtherTestsAreAParameterError)
{
    expectStarts(0);
    for (const unsigned char selector : {0, 6, 8, 255}) {
        OmciFrame request = frame(selector);
        EXPECT_EQ(test(&request), 3);
        EXPECT_TRUE(log.has(3, "Detected other than Self-Test (" + std::to_string(selector) + ") "));
    }
}

TEST_P(SelfTest, FrameWithoutContentsIsAProcessingError)
{
    expectStarts(0);
    OmciFrame request =
        requestFrame(omci::MessageType::Test, GetParam().classId, GetParam().instance, {}, omci::Format::Extended);
    EXPECT_EQ(test(&request), 1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
}

TEST_P(SelfTest, NoFrameFails)
{
    expectStarts(0);
    log.clear();
    EXPECT_EQ(test(nullptr), -1);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
}

TEST_P(SelfTest, WithoutHardwareIsSkipped)
{
    removeHardware();
    OmciFrame request = frame(7);
    log.clear();
    EXPECT_EQ(test(&request), 0);
    EXPECT_EQ(log.texts(3), Texts{"Detected NULL pointer"});
}

INSTANTIATE_TEST_SUITE_P(Classes, SelfTest,
                         ::testing::Values(SelfTestRule{256, 0, "UNIG"}, SelfTestRule{263, 1025, "ANIG"}),
                         [](const auto& rule) { return std::string(rule.param.word); });

class Onu3G : public LibraryTest
{};

TEST_F(Onu3G, IsAStoreOnly)
{
    startUp();
    EXPECT_EQ(set(65422, 0, 0x800, 0x0102), 0);
    EXPECT_EQ(getNumber(65422, 0, 0x800), 0x0102U);
    EXPECT_EQ(adapter(65422).applyConfigurationToHardwareForSet(0), -1);
}

/// One of the two levels that ANI-G measures at each read.
struct LevelRule
{
    const char* name;
    unsigned short mask;
    int (OmciManagedEntitiesCore::*update)(unsigned short instance, unsigned short level);
};

class OpticalLevel : public LibraryTest, public ::testing::WithParamInterface<LevelRule>
{
protected:
    OpticalLevel() { startUp(); }

    /// The hardware answers a refresh with this level.
    void expectRefresh(int times, unsigned short level)
    {
        const auto answer = [level](unsigned short instance) {
            return (OmciManagedEntitiesCore().*GetParam().update)(instance, level);
        };
        if (GetParam().mask == 0x40) {
            EXPECT_CALL(hardware, refreshAniOpticalSignalLevel(1025)).Times(times).WillRepeatedly(Invoke(answer));
            EXPECT_CALL(hardware, refreshAniTransmitOpticalLevel).Times(0);
        } else {
            EXPECT_CALL(hardware, refreshAniTransmitOpticalLevel(1025)).Times(times).WillRepeatedly(Invoke(answer));
            EXPECT_CALL(hardware, refreshAniOpticalSignalLevel).Times(0);
        }
    }
};

TEST_P(OpticalLevel, IsMeasuredWhateverTheReadIsFor)
{
    expectRefresh(3, 0xD8F0);
    for (const EnumOmciAction action : {OMCI_ACTION_GET, OMCI_ACTION_GET_CURRENT_DATA, OMCI_ACTION_SET}) {
        EXPECT_EQ(getNumber(263, 1025, GetParam().mask, action), 0xD8F0U);
    }
    EXPECT_TRUE(log.has(6, "Optical signal level(55536)"));
}

TEST_P(OpticalLevel, LastOneIsReadWhenTheHardwareIsSilent)
{
    (OmciManagedEntitiesCore().*GetParam().update)(1025, 77);
    EXPECT_EQ(getNumber(263, 1025, GetParam().mask), 77U);
}

TEST_P(OpticalLevel, LastOneIsReadWithoutHardware)
{
    (OmciManagedEntitiesCore().*GetParam().update)(1025, 77);
    removeHardware();
    log.clear();
    EXPECT_EQ(getNumber(263, 1025, GetParam().mask), 77U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Levels, OpticalLevel,
    ::testing::Values(LevelRule{"Received", 0x40, &OmciManagedEntitiesCore::updateAniGOpticalSignalLevel},
                      LevelRule{"Transmitted", 0x4, &OmciManagedEntitiesCore::updateAniGTransmitOpticalLevel}),
    [](const auto& rule) { return std::string(rule.param.name); });

class AniG : public LibraryTest
{};

TEST_F(AniG, SetHasNothingToApply)
{
    startUp();
    EXPECT_EQ(adapter(263).applyConfigurationToHardwareForSet(1025), -1);
}

TEST_F(AniG, DumpTouchesNoHardware)
{
    startUp();
    EXPECT_CALL(hardware, refreshAniOpticalSignalLevel).Times(0);
    EXPECT_CALL(hardware, refreshAniTransmitOpticalLevel).Times(0);
    EXPECT_NE(adapter(263).dumpME(1025, 0xFFFF).find("OPTICAL_SIGNAL_LEVEL"), std::string::npos);
}

}  // namespace
