// MIB upload, reset, data sync and get all alarms of ONU data.
#include <algorithm>
#include <chrono>
#include <thread>

#include "Frames.h"
#include "LibraryTest.h"
#include "NorvikTimer.h"
#include "OmciFrame.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMeOnuDataIf.h"
#include "OmciMeProtectionDataIf.h"
#include "adapterExtended/OmciMeOnuDataAdapterExtended.h"

namespace {

using omci::MessageType;
using ::testing::_;
using Adapter = OmciMeOnuDataAdapterExtended;
using Bytes = std::vector<unsigned char>;

class OnuData : public LibraryTest
{
protected:
    OnuData() { startUp(); }

    static Adapter& onuData() { return dynamic_cast<Adapter&>(adapter(2)); }

    static OmciFrame request(omci::MessageType type, unsigned short instance)
    {
        return requestFrame(type, 2, instance);
    }

    static OmciFrame request(omci::MessageType type, unsigned short instance, unsigned short sequenceNumber)
    {
        return requestFrame(
            type, 2, instance,
            {static_cast<unsigned char>(sequenceNumber >> 8), static_cast<unsigned char>(sequenceNumber)});
    }

    /// The number of "next" commands that a reply announces.
    static unsigned short countOf(const OmciFrame& frame)
    {
        const Bytes contents = replyContents(frame);
        return contents.size() < 2 ? static_cast<unsigned short>(0xFFFF)
                                   : static_cast<unsigned short>((contents[0] << 8) | contents[1]);
    }

    static bool timerIsRunning(NorvikTimer::Handler handler)
    {
        const std::vector<NorvikTimer::Running> running = NorvikTimer::getRunningTimers();
        return std::any_of(running.begin(), running.end(), [&](const auto& timer) { return timer.handler == handler; });
    }

    static int message(unsigned short sequenceNumber, Bytes bytes)
    {
        return onuData().setMibUploadMessage(sequenceNumber, bytes.data(), static_cast<unsigned short>(bytes.size()));
    }
};

TEST_F(OnuData, NullFramesAreRefused)
{
    EXPECT_EQ(onuData().mibUpload(nullptr), -1);
    EXPECT_EQ(onuData().mibUploadNext(nullptr), -1);
    EXPECT_EQ(onuData().mibReset(nullptr), -1);
    EXPECT_EQ(onuData().getAllAlarms(nullptr), -1);
    EXPECT_EQ(onuData().getAllAlarmsNext(nullptr), -1);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 5U);
}

TEST_F(OnuData, UploadTakesASnapshotAndTellsTheHardware)
{
    OmciFrame frame = request(MessageType::MibUpload, 0);
    EXPECT_CALL(hardware, notifyMibUploadState(3)).Times(1);
    EXPECT_EQ(onuData().mibUpload(&frame), 0);
    const unsigned short count = countOf(frame);
    EXPECT_GT(count, 50);
    EXPECT_TRUE(log.has(3, "Mib upload start Notification sent to hardware manager NetworkState_AttemptOltSync"));
    EXPECT_TRUE(
        log.has(6, "MIB upload next commands required to complete a MIB upload(" + std::to_string(count) + ")"));
    EXPECT_EQ(Adapter::m_MibUploadInProgress, 1);
}

TEST_F(OnuData, UploadOnAnotherInstanceIsAnsweredWithNoFrames)
{
    OmciFrame frame = request(MessageType::MibUpload, 1);
    EXPECT_CALL(hardware, notifyMibUploadState(_)).Times(0);
    EXPECT_EQ(onuData().mibUpload(&frame), 0);
    EXPECT_EQ(countOf(frame), 0);
    EXPECT_TRUE(log.has(3, "Instance(1) doesn't exists"));
    EXPECT_EQ(Adapter::m_MibUploadInProgress, 0);
}

TEST_F(OnuData, LastFrameOfTheReplayTellsTheHardware)
{
    message(0, {1});
    message(1, {2});
    EXPECT_CALL(hardware, notifyMibUploadState(4)).Times(2);
    for (const unsigned short sequenceNumber : {0, 1, 1}) {
        OmciFrame frame = request(MessageType::MibUploadNext, 0, sequenceNumber);
        EXPECT_EQ(onuData().mibUploadNext(&frame), 0);
    }
    EXPECT_EQ(log.count(3, "Mib upload END Notification sent to hardware manager NetworkState_OltSync"), 2U);
}

TEST_F(OnuData, SingleFrameSnapshotEndsWithNumberZero)
{
    message(0, {1});
    EXPECT_CALL(hardware, notifyMibUploadState(4)).Times(1);
    OmciFrame frame = request(MessageType::MibUploadNext, 0, 0);
    onuData().mibUploadNext(&frame);
}

TEST_F(OnuData, EmptySnapshotNeverEnds)
{
    EXPECT_CALL(hardware, notifyMibUploadState(_)).Times(0);
    for (const unsigned short sequenceNumber : {0, 1, 0xFFFF}) {
        OmciFrame frame = request(MessageType::MibUploadNext, 0, sequenceNumber);
        EXPECT_EQ(onuData().mibUploadNext(&frame), 0);
    }
}

TEST_F(OnuData, ReplayGivesBackWhatTheWalkStored)
{
    message(0, {0x01, 0x02, 0x03});
    OmciFrame frame = request(MessageType::MibUploadNext, 0, 0);
    onuData().mibUploadNext(&frame);
    EXPECT_EQ(replyContents(frame), (Bytes{1, 2, 3}));
}

TEST_F(OnuData, NumberBeyondTheSnapshotIsAnsweredWithZeros)
{
    message(0, {1});
    OmciFrame frame = request(MessageType::MibUploadNext, 0, 7);
    EXPECT_EQ(onuData().mibUploadNext(&frame), 0);
    EXPECT_EQ(replyContents(frame), Bytes(32));
    EXPECT_TRUE(log.has(4, "Sequence number(7) not found"));
    EXPECT_TRUE(log.has(3, "Failed to retrieve the MIB upload next(7) message"));
}

TEST_F(OnuData, MessageLongerThanTheReplyIsNotCut)
{
    message(0, Bytes(33, 0xEE));
    OmciFrame frame = request(MessageType::MibUploadNext, 0, 0);
    onuData().mibUploadNext(&frame);
    EXPECT_EQ(replyContents(frame), Bytes(32));
}

TEST_F(OnuData, FirstMessageOfANumberStays)
{
    EXPECT_EQ(message(3, {1}), 0);
    EXPECT_EQ(message(3, {2}), -1);
    EXPECT_TRUE(log.has(6, "Sequence number(3); buffer(1; 01)"));
    EXPECT_TRUE(log.has(4, "Sequence number(3) already recorded"));
    unsigned char buffer[8] = {};
    unsigned short length = sizeof buffer;
    EXPECT_EQ(onuData().getMibUploadMessage(3, buffer, &length), 0);
    EXPECT_EQ(length, 1);
    EXPECT_EQ(buffer[0], 1);
    EXPECT_TRUE(log.has(6, "Sequence number(3); Buffer(1; 01)"));
}

TEST_F(OnuData, MessageNullPointersAreRefused)
{
    unsigned char buffer[8] = {};
    unsigned short length = sizeof buffer;
    EXPECT_EQ(onuData().setMibUploadMessage(0, nullptr, 3), -1);
    EXPECT_EQ(onuData().setGetAllAlarmsMessage(0, nullptr, 3), -1);
    EXPECT_EQ(onuData().getMibUploadMessage(0, nullptr, &length), -1);
    EXPECT_EQ(onuData().getMibUploadMessage(0, buffer, nullptr), -1);
    EXPECT_EQ(onuData().getAllAlarmsMessage(0, nullptr, &length), -1);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 5U);
}

TEST_F(OnuData, LookUpOfAMissingNumberLeavesTheBuffer)
{
    unsigned char buffer[2] = {7, 7};
    unsigned short length = sizeof buffer;
    EXPECT_EQ(onuData().getMibUploadMessage(1, buffer, &length), -1);
    EXPECT_EQ(buffer[0], 7);
    EXPECT_EQ(length, 2);
}

TEST_F(OnuData, LookUpWithTooLittleRoomCopiesNothing)
{
    message(0, {1, 2, 3});
    unsigned char buffer[2] = {7, 7};
    unsigned short length = sizeof buffer;
    EXPECT_EQ(onuData().getMibUploadMessage(0, buffer, &length), 0);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(buffer[0], 7);
}

TEST_F(OnuData, NewUploadDropsTheOlderSnapshot)
{
    message(60000, {1});
    OmciFrame frame = request(MessageType::MibUpload, 0);
    onuData().mibUpload(&frame);
    unsigned char buffer[32] = {};
    unsigned short length = sizeof buffer;
    EXPECT_EQ(onuData().getMibUploadMessage(60000, buffer, &length), -1);
}

TEST_F(OnuData, SnapshotCanBeTakenAgainWithoutACommand)
{
    EXPECT_CALL(hardware, notifyMibUploadState(_)).Times(0);
    OmciFrame frame = request(MessageType::MibUpload, 0);
    unsigned short count = 0;
    EXPECT_EQ(onuData().invokeMibUploadExec(&frame, count), 0);
    EXPECT_GT(count, 50);
    EXPECT_TRUE(
        log.has(6, "MIBUPLOAD frames generations completed. No. of MEs to be uploaded is: " + std::to_string(count)));
    EXPECT_EQ(Adapter::m_MibUploadInProgress, 0);
}

TEST_F(OnuData, TimeOutEndsTheUploadButKeepsTheSnapshot)
{
    NorvikTimer::setTimeScale(2000);
    OmciFrame frame = request(MessageType::MibUpload, 0);
    onuData().mibUpload(&frame);
    for (int i = 0; i < 500 && Adapter::m_MibUploadInProgress != 0; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(Adapter::m_MibUploadInProgress, 0);
    NorvikTimer::setTimeScale(1);
    unsigned char buffer[32] = {};
    unsigned short length = sizeof buffer;
    EXPECT_EQ(onuData().getMibUploadMessage(0, buffer, &length), 0);
}

TEST_F(OnuData, ResetDropsTheOltsEntitiesAndRestoresTheStartUpValues)
{
    create(279, 1);
    set(263, 1025, 0x0400, 3ULL);
    set(2, 0, 0x8000, 99ULL);
    EXPECT_CALL(hardware, resetDataPathConfiguration()).Times(1);
    OmciFrame frame = request(MessageType::MibReset, 0);
    EXPECT_EQ(onuData().mibReset(&frame), 0);
    EXPECT_EQ(OmciMeProtectionDataIf::getFirstManagedEntityInstance(), nullptr);
    EXPECT_EQ(getNumber(263, 1025, 0x0400), 5U);
    EXPECT_EQ(getNumber(2, 0, 0x8000), 0U);
}

TEST_F(OnuData, ResetOfAnUnknownInstanceIsRefused)
{
    create(279, 1);
    EXPECT_CALL(hardware, resetDataPathConfiguration()).Times(0);
    OmciFrame frame = request(MessageType::MibReset, 4);
    EXPECT_EQ(onuData().mibReset(&frame), -1);
    EXPECT_EQ(frame.getReplyResult(), 5);
    EXPECT_TRUE(log.has(3, "Instance(4) doesn't exists"));
    EXPECT_NE(OmciMeProtectionDataIf::getFirstManagedEntityInstance(), nullptr);
}

TEST_F(OnuData, ResetOfItsOwnAccordTakesTheMutexAndEnds)
{
    create(279, 1);
    EXPECT_CALL(hardware, resetDataPathConfiguration()).WillOnce([] {
        EXPECT_FALSE(OmciManagedEntityRegistrar::getInstance()->getMutex().try_lock());
        return 0;
    });
    EXPECT_EQ(onuData().mibReset(), 0);
    EXPECT_EQ(OmciMeProtectionDataIf::getFirstManagedEntityInstance(), nullptr);
    EXPECT_TRUE(OmciManagedEntityRegistrar::getInstance()->getMutex().try_lock());
    OmciManagedEntityRegistrar::getInstance()->getMutex().unlock();
}

TEST_F(OnuData, ResetLeavesTheSnapshotForReplay)
{
    message(0, {5});
    onuData().mibReset();
    OmciFrame frame = request(MessageType::MibUploadNext, 0, 0);
    onuData().mibUploadNext(&frame);
    EXPECT_EQ(replyContents(frame)[0], 5);
}

TEST_F(OnuData, ResetWithoutHardwareStillResets)
{
    create(279, 1);
    removeHardware();
    EXPECT_EQ(onuData().mibReset(), 0);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
    EXPECT_EQ(OmciMeProtectionDataIf::getFirstManagedEntityInstance(), nullptr);
}

TEST_F(OnuData, DataSyncSkipsZeroOnWrapAround)
{
    const std::vector<std::pair<unsigned char, unsigned char>> steps = {{0, 1}, {1, 2}, {254, 255}, {255, 1}};
    for (const auto& [before, after] : steps) {
        OmciMeOnuDataIf::getManagedEntityInstance(0)->setMibDataSync(before);
        EXPECT_EQ(onuData().incrementMibDataSyncAttribute(), 0);
        EXPECT_EQ(getNumber(2, 0, 0x8000), after);
    }
    EXPECT_TRUE(log.has(7, "Current MIB Data Sync attribute value(254). Incremented the value"));
}

TEST_F(OnuData, DataSyncWithoutAnEntityFails)
{
    OmciManagedEntityRegistrar::getInstance()->deleteManagedEntityInstance(2, 0);
    EXPECT_EQ(onuData().incrementMibDataSyncAttribute(), -1);
    EXPECT_TRUE(log.has(3, "Valid ONUData object not found."));
}

TEST_F(OnuData, NoActiveAlarmMeansNoFrames)
{
    OmciFrame frame = request(MessageType::GetAllAlarms, 0);
    EXPECT_CALL(hardware, notifyMibUploadState(_)).Times(0);
    EXPECT_EQ(onuData().getAllAlarms(&frame), 0);
    EXPECT_EQ(countOf(frame), 0);
    EXPECT_EQ(Adapter::m_GetAllAlarmsInProgress, 0);
    EXPECT_TRUE(log.has(6, "Get all alarms next commands required to complete a GET ALL ALARMS(0)"));
}

TEST_F(OnuData, ActiveAlarmsAreSnapshotAndReplayed)
{
    adapter(263).updateAlarmsBitmap(1025, 0, true);
    OmciFrame frame = request(MessageType::GetAllAlarms, 0);
    onuData().getAllAlarms(&frame);
    EXPECT_EQ(countOf(frame), 1);
    EXPECT_EQ(Adapter::m_GetAllAlarmsInProgress, 1);
    adapter(263).updateAlarmsBitmap(1025, 0, false);  // raised and cleared alarms don't change the snapshot

    OmciFrame next = request(MessageType::GetAllAlarmsNext, 0, 0);
    EXPECT_EQ(onuData().getAllAlarmsNext(&next), 0);
    Bytes expected(32);
    expected[0] = 1;
    expected[1] = 7;
    expected[2] = 4;
    expected[3] = 1;
    expected[4] = 0x80;
    EXPECT_EQ(replyContents(next), expected);
}

TEST_F(OnuData, AlarmsOfAnUnknownInstanceAreNone)
{
    OmciFrame frame = request(MessageType::GetAllAlarms, 9);
    EXPECT_EQ(onuData().getAllAlarms(&frame), 0);
    EXPECT_EQ(countOf(frame), 0);
    EXPECT_TRUE(log.has(3, "Instance(9) doesn't exists"));
    OmciFrame next = request(MessageType::GetAllAlarmsNext, 9, 0);
    EXPECT_EQ(onuData().getAllAlarmsNext(&next), 0);
    EXPECT_EQ(replyContents(next), Bytes(32));
}

TEST_F(OnuData, AlarmNumberBeyondTheSnapshotIsAnsweredWithZeros)
{
    OmciFrame next = request(MessageType::GetAllAlarmsNext, 0, 3);
    EXPECT_EQ(onuData().getAllAlarmsNext(&next), 0);
    EXPECT_TRUE(log.has(3, "Failed to retrieve the alarms next(3) message"));
    EXPECT_EQ(replyContents(next), Bytes(32));
}

TEST_F(OnuData, AlarmReplayProlongsTheUploadsSupervisionNotItsOwn)
{
    adapter(263).updateAlarmsBitmap(1025, 0, true);
    OmciFrame frame = request(MessageType::GetAllAlarms, 0);
    onuData().getAllAlarms(&frame);
    EXPECT_TRUE(timerIsRunning(Adapter::getAllAlarmsTimerHandler));
    EXPECT_FALSE(timerIsRunning(Adapter::mibUploadTimerHandler));
    OmciFrame first = request(MessageType::GetAllAlarmsNext, 0, 0);
    onuData().getAllAlarmsNext(&first);
    EXPECT_FALSE(timerIsRunning(Adapter::mibUploadTimerHandler)) << "number 0 restarts no timer";
    OmciFrame second = request(MessageType::GetAllAlarmsNext, 0, 1);
    onuData().getAllAlarmsNext(&second);
    EXPECT_TRUE(timerIsRunning(Adapter::mibUploadTimerHandler));
}

TEST_F(OnuData, NextWithoutASequenceNumberIsRefused)
{
    for (const std::vector<unsigned char>& contents : {Bytes{}, Bytes{0}}) {
        OmciFrame frame = requestFrame(MessageType::MibUploadNext, 2, 0, contents, omci::Format::Extended);
        EXPECT_EQ(onuData().mibUploadNext(&frame), -1);
        EXPECT_EQ(onuData().getAllAlarmsNext(&frame), -1);
        EXPECT_FALSE(frame.hasReply());
    }
}

TEST_F(OnuData, ReplayOnAnUnknownInstanceIsAnsweredWithZeros)
{
    OmciFrame frame = request(MessageType::MibUpload, 0);
    onuData().mibUpload(&frame);
    OmciFrame next = request(MessageType::MibUploadNext, 9, 0);
    EXPECT_EQ(onuData().mibUploadNext(&next), 0);
    EXPECT_EQ(replyContents(next), Bytes(32));
    EXPECT_TRUE(log.has(3, "Instance(9) doesn't exists"));
}

TEST_F(OnuData, TimeOutEndsTheAlarmRetrieval)
{
    NorvikTimer::setTimeScale(2000);
    adapter(263).updateAlarmsBitmap(1025, 0, true);
    OmciFrame frame = request(MessageType::GetAllAlarms, 0);
    onuData().getAllAlarms(&frame);
    for (int i = 0; i < 3000 && Adapter::m_GetAllAlarmsInProgress != 0; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(Adapter::m_GetAllAlarmsInProgress, 0);
    NorvikTimer::setTimeScale(1);
}

}  // namespace
