#include "host/Notifier.h"

#include "DispatcherFixture.h"
#include "omci_host/OmciMessage.h"

using namespace omci;

namespace {

class Notifications : public DispatcherTest
{
protected:
    Notifications()
    {
        me.add(0x101).values[0x4000] = fromHex("1234");
        me.add(0x102);
    }

    void changeAttribute(unsigned short mask)
    {
        OmciMessage message;
        me.buildAttributeValueChangeMessage(0x101, mask, &message);
        notifier.sendAttributeValueChange(&message);
    }

    FakeOnuData onuData;
    FakeMe me{11, {attribute(0x8000, 1, R), attribute(0x4000, 2, R | A), attribute(0x2000, 8, R | A, true)}};
};

}  // namespace

TEST_F(Notifications, MessageOfAReportedAttribute)
{
    OmciMessage message;
    me.buildAttributeValueChangeMessage(0x101, 0x4000, &message);
    EXPECT_EQ("000b010140001234", toHex(message.getMessage(), message.getMessageLength()));
    me.buildAttributeValueChangeMessage(0x101, 0x2000, &message);
    EXPECT_EQ("000b01012000", toHex(message.getMessage(), message.getMessageLength()));
}

TEST_F(Notifications, MessageStaysEmptyForWhatReportsNone)
{
    OmciMessage message;
    message.setMessage(reinterpret_cast<const unsigned char*>("abc"), 3);
    me.buildAttributeValueChangeMessage(0x101, 0x8000, &message);
    EXPECT_EQ(0, message.getMessageLength());
    me.buildAttributeValueChangeMessage(0x999, 0x4000, &message);
    EXPECT_EQ(0, message.getMessageLength());
    me.buildAttributeValueChangeMessage(0x101, 0x0001, &message);
    EXPECT_EQ(0, message.getMessageLength());
    me.buildAttributeValueChangeMessage(0x101, 0x4000, nullptr);
}

TEST_F(Notifications, NothingIsSentBeforeTheOltKnowsTheMib)
{
    changeAttribute(0x4000);
    EXPECT_TRUE(notifier.raiseAlarm(11, 0x101, 0, true));
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(2U, notifier.counters().suppressed);
    EXPECT_TRUE(me.instances[0x101].alarms.test(0));
}

TEST_F(Notifications, AttributeValueChangeAfterAnUpload)
{
    ask(MessageType::MibUpload, 2, 0);
    changeAttribute(0x4000);
    ASSERT_EQ(1U, sent.size());
    EXPECT_EQ("0000110a000b010140001234" + std::string(56, '0') + "0000002800000000", toHex(sent[0]));
    changeAttribute(0x8000);
    EXPECT_EQ(1U, sent.size());
}

TEST_F(Notifications, FormatFollowsTheLastRequest)
{
    format = Format::Extended;
    ask(MessageType::MibReset, 2, 0);
    changeAttribute(0x4000);
    EXPECT_TRUE(notifier.raiseAlarm(11, 0x102, 8, true));
    ASSERT_EQ(2U, sent.size());
    EXPECT_EQ("0000110b000b010100044000123400000000", toHex(sent[0]));
    EXPECT_EQ("0000100b000b0102001d0080" + std::string(52, '0') + "0100000000", toHex(sent[1]));
}

TEST_F(Notifications, RefusedMibResetTellsTheOltNothing)
{
    ask(MessageType::MibReset, 2, 5);
    changeAttribute(0x4000);
    EXPECT_TRUE(sent.empty());
}

TEST_F(Notifications, ChangesOfTheMibResetItselfAreNotSent)
{
    ask(MessageType::MibUpload, 2, 0);
    {
        const Notifier::Pause pause(&notifier);
        changeAttribute(0x4000);
    }
    EXPECT_TRUE(sent.empty());
    changeAttribute(0x4000);
    EXPECT_EQ(1U, sent.size());
}

TEST_F(Notifications, AlarmsAreNumberedFromOneTo255)
{
    notifier.setMibKnown(true);
    for (unsigned change = 0; change < 256; ++change) {
        EXPECT_TRUE(notifier.raiseAlarm(11, 0x101, 3, change % 2 == 0));
    }
    ASSERT_EQ(256U, sent.size());
    EXPECT_EQ(1, sent[0][39]);
    EXPECT_EQ(0x10, sent[0][8]);
    EXPECT_EQ(0, sent[1][8]);
    EXPECT_EQ(255, sent[254][39]);
    EXPECT_EQ(1, sent[255][39]);
}

TEST_F(Notifications, GetAllAlarmsStartsTheNumbersAgain)
{
    notifier.setMibKnown(true);
    notifier.raiseAlarm(11, 0x101, 3, true);
    notifier.raiseAlarm(11, 0x101, 3, false);
    ask(MessageType::GetAllAlarms, 2, 0, "00");
    notifier.raiseAlarm(11, 0x101, 3, true);
    EXPECT_EQ(2, sent.at(1)[39]);
    EXPECT_EQ(1, sent.at(2)[39]);
}

TEST_F(Notifications, AnAlarmThatChangesNothingIsNotSent)
{
    notifier.setMibKnown(true);
    EXPECT_TRUE(notifier.raiseAlarm(11, 0x101, 3, true));
    EXPECT_TRUE(notifier.raiseAlarm(11, 0x101, 3, true));
    EXPECT_EQ(1U, sent.size());
    me.inAlarms = false;
    EXPECT_TRUE(notifier.raiseAlarm(11, 0x101, 4, true));
    EXPECT_EQ(1U, sent.size());
}

TEST_F(Notifications, AlarmsOfWhatDoesNotExistAreRefused)
{
    EXPECT_FALSE(notifier.raiseAlarm(12, 0x101, 3, true));
    EXPECT_FALSE(notifier.raiseAlarm(11, 0x999, 3, true));
    EXPECT_FALSE(notifier.raiseAlarm(11, 0x101, 223, true));
    EXPECT_TRUE(notifier.raiseAlarm(11, 0x101, 222, true));
}

TEST_F(Notifications, TestResultRepeatsTheRequestsTransaction)
{
    const Bytes contents = fromHex("0100a5");
    notifier.sendTestResult(0x83FE, 263, 0x8001, contents.data(), contents.size());
    ASSERT_EQ(1U, sent.size());
    EXPECT_EQ("83fe1b0a010780010100a5", toHex(sent[0]).substr(0, 22));
    EXPECT_EQ(1U, notifier.counters().testResults);
}

TEST_F(Notifications, BrokenMessagesAreIgnored)
{
    notifier.setMibKnown(true);
    notifier.sendAttributeValueChange(nullptr);
    OmciMessage message(reinterpret_cast<const unsigned char*>("12345"), 5);
    notifier.sendAttributeValueChange(&message);
    EXPECT_TRUE(sent.empty());
}

TEST_F(Notifications, FramesCarryTheMic)
{
    std::string problem;
    std::vector<Bytes> sealed;
    Notifier guarded([&](const std::uint8_t* frame, std::size_t length) { sealed.emplace_back(frame, frame + length); },
                     *Mic::parse("crc32", problem));
    guarded.setMibKnown(true);
    EXPECT_TRUE(guarded.raiseAlarm(11, 0x101, 0, true));
    ASSERT_EQ(1U, sealed.size());
    EXPECT_TRUE(Mic::parse("crc32", problem)->check(sealed[0].data(), sealed[0].size(), Direction::Upstream));
}
