// Adapters that do what the library's do seldom or never: a host has to live with any of them.

#include <array>

#include "DispatcherFixture.h"
#include "host/AttributeLists.h"
#include "omci_host/OmciMessage.h"

using namespace omci;

namespace {

class UnusualAdapters : public DispatcherTest
{
protected:
    UnusualAdapters()
    {
        Logger::getInstance(kHostLoggerId)
            ->setObserver(
                [](const Logger::Line& line, void* context) {
                    static_cast<std::vector<std::string>*>(context)->push_back(std::to_string(line.level) + line.text);
                },
                &lines);
    }
    ~UnusualAdapters() override { Logger::getInstance(kHostLoggerId)->setObserver(nullptr, nullptr); }

    static OmciFrame upload(Format format)
    {
        FrameView view;
        view.header.type = MessageType::MibUpload;
        view.header.format = format;
        OmciFrame frame;
        frame.setRequest(view);
        return frame;
    }

    std::vector<std::string> lines;
};

/// Throws what no std::exception is.
struct Thrower : FakeMe
{
    Thrower() : FakeMe(100, {attribute(0x8000, 1, R | W | C | U), attribute(0x4000, 1, R | U)}) { add(1); }

    using FakeMe::getAttribute;
    int getAttribute(unsigned short id, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override
    {
        if (definition->attributeMask == badMask) {
            throw 42;
        }
        return FakeMe::getAttribute(id, definition, buffer, action);
    }
    int deleteManagedEntityInstance(unsigned short id, bool byOlt) const override
    {
        if (keepsInstances) {
            throw 42;
        }
        return FakeMe::deleteManagedEntityInstance(id, byOlt);
    }

    unsigned short badMask = 0;
    bool keepsInstances = false;
};

}  // namespace

TEST_F(UnusualAdapters, AnyThrownValueIsAProcessingError)
{
    Thrower me;
    me.badMask = 0x8000;
    EXPECT_EQ("01", ask(MessageType::Get, 100, 1, "8000").substr(0, 2));
    EXPECT_EQ(std::vector<std::string>{"3Managed entity(100; 1); get failed(unknown exception)"}, lines);
    EXPECT_EQ(1U, dispatcher.statistics().exceptions);
}

TEST_F(UnusualAdapters, UploadLeavesOutWhatThrowsAndGoesOn)
{
    FakeOnuData onuData;
    Thrower me;
    me.badMask = 0x8000;
    me.instances[1].values[0x4000] = fromHex("55");
    EXPECT_EQ(padded("0002"), ask(MessageType::MibUpload, 2, 0));
    EXPECT_EQ(padded("00640001400055"), ask(MessageType::MibUploadNext, 2, 0, "0001"));
    EXPECT_EQ(std::vector<std::string>{"3Managed entity(100; 1); Attribute mask(0x8000) left out(unknown exception)"},
              lines);
}

TEST_F(UnusualAdapters, InstanceOfARefusedCreateThatCannotGoIsLogged)
{
    FakeOnuData onuData;
    Thrower me;
    me.keepsInstances = true;
    me.refused = 0x8000;
    EXPECT_EQ(padded("038000"), ask(MessageType::Create, 100, 2, "07"));
    EXPECT_EQ(std::vector<std::string>{"3Managed entity(100; 2) stays"}, lines);
    EXPECT_EQ(0U, onuData.dataSync);
}

TEST_F(UnusualAdapters, WithoutOnuDataThereIsNoDataSyncToStep)
{
    FakeMe me(100, {attribute(0x8000, 1, R | W | C)});
    EXPECT_EQ(padded("00"), ask(MessageType::Create, 100, 1, "07"));
    EXPECT_EQ(padded("00"), ask(MessageType::Delete, 100, 1));
}

TEST_F(UnusualAdapters, RowsThatTheHardwareRefusesAreAProcessingErrorForTheIpHostAlone)
{
    FakeOnuData onuData;
    format = Format::Extended;
    for (const unsigned short classId : std::array<unsigned short, 2>{134, 100}) {
        FakeMe me(classId, {attribute(0x1000, 2, R | W | N, true)});
        me.add(1);
        me.applyResult = -1;
        EXPECT_EQ(classId == 134 ? "01" : "00", ask(MessageType::SetTable, classId, 1, "1000 0102")) << classId;
        EXPECT_EQ(1U, me.instances[1].rows[0x1000]);
        EXPECT_EQ(1U, me.applies);
    }
    EXPECT_EQ(1U, onuData.dataSync);
}

TEST_F(UnusualAdapters, ExtendedSetBehindAnUnknownAttributeMayHaveAnyLength)
{
    FakeOnuData onuData;
    format = Format::Extended;
    FakeMe me(100, {attribute(0x8000, 1, R | W)});
    me.add(1);
    EXPECT_EQ("0940000000", ask(MessageType::Set, 100, 1, "c000 07 01020304"));
    EXPECT_EQ("07", toHex(me.instances[1].values[0x8000]));
}

TEST_F(UnusualAdapters, SectionThatWasTakenAndWantsAReplyIsASuccess)
{
    struct Image : FakeMe
    {
        Image() : FakeMe(7, {}) { add(0); }
        int downloadSection(OmciFrame*) override
        {
            ++sections;
            return 1;
        }
        unsigned sections = 0;
    } image;
    EXPECT_EQ(padded("00"), ask(MessageType::DownloadSection, 7, 0, "00 aabb"));
    EXPECT_EQ(1U, image.sections);
}

TEST_F(UnusualAdapters, SectionWithinAWindowThatComesTwiceIsTakenOnce)
{
    struct Image : FakeMe
    {
        Image() : FakeMe(7, {}) { add(0); }
        int downloadSection(OmciFrame*) override
        {
            ++sections;
            return 1;
        }
        unsigned sections = 0;
    } image;
    FrameHeader section = header(MessageType::DownloadSection, 7, 0);
    section.acknowledgeRequest = false;
    const Bytes octets = frame(section, "00 aabb");
    EXPECT_TRUE(handle(octets).empty());
    EXPECT_TRUE(handle(octets).empty());
    EXPECT_EQ(1U, image.sections);
    EXPECT_EQ(1U, dispatcher.statistics().retransmissions);
    section.transactionId = 0;
    handle(frame(section, "00 aabb"));
    handle(frame(section, "00 aabb"));
    EXPECT_EQ(3U, image.sections) << "without an id there are no copies";
}

TEST_F(UnusualAdapters, TestMayLeaveItsOwnReply)
{
    struct Tested : FakeMe
    {
        Tested() : FakeMe(263, {}) { add(0); }
        int test(OmciFrame* frame) const override
        {
            frame->setFrameToSendBackToOLT(6, 0, 0, 0, nullptr, 0);
            return 0;
        }
    } const tested;
    EXPECT_EQ(padded("06"), ask(MessageType::Test, 263, 0, "07"));
}

TEST_F(UnusualAdapters, ResultsOutsideOfG988ArePassedOnAndCountedNowhere)
{
    struct Tested : FakeMe
    {
        Tested() : FakeMe(263, {}) { add(0); }
        int test(OmciFrame*) const override { return 77; }
    } const tested;
    EXPECT_EQ(padded("4d"), ask(MessageType::Test, 263, 0, "07"));
    std::uint64_t counted = 0;
    for (const std::uint64_t results : dispatcher.statistics().results) {
        counted += results;
    }
    EXPECT_EQ(0U, counted);
}

TEST_F(UnusualAdapters, HostWithoutNotificationsUploadsResetsAndReadsAlarms)
{
    FakeOnuData onuData;
    onuData.add(0);
    Dispatcher silent{Mic()};
    for (const MessageType type : {MessageType::MibUpload, MessageType::GetAllAlarms, MessageType::MibReset}) {
        const Bytes bytes = frame(header(type, 2, 0), "00");
        const Dispatcher::Reply reply = silent.handle(bytes.data(), bytes.size());
        ASSERT_EQ(48U, reply.length) << messageTypeName(type);
        const std::string contents = toHex(reply.data + 8, 2);
        EXPECT_EQ(type == MessageType::MibUpload ? "0001" : "0000", contents) << messageTypeName(type);
    }
}

TEST_F(UnusualAdapters, AttributeThatExceedsABaselineFrameIsUploadedInExtendedOnly)
{
    FakeOnuData onuData;
    FakeMe me(11, {attribute(0x8000, 27, R | U), attribute(0x4000, 1, R | U)});
    me.add(1);
    EXPECT_EQ(padded("0002"), ask(MessageType::MibUpload, 2, 0));
    EXPECT_EQ(padded("000b00014000"), ask(MessageType::MibUploadNext, 2, 0, "0001"));
    format = Format::Extended;
    EXPECT_EQ("0001", ask(MessageType::MibUpload, 2, 0));
    const std::string contents = ask(MessageType::MibUploadNext, 2, 0, "0000");
    EXPECT_NE(std::string::npos, contents.find("001c000b0001c000"));
}

TEST_F(UnusualAdapters, EntityThatExceedsAnExtendedFrameGoesOnInTheNext)
{
    FakeOnuData onuData;
    onuData.inUpload = false;
    FakeMe me(11, {attribute(0x8000, 1500, R | U), attribute(0x4000, 1000, R | U)});
    me.add(1);
    format = Format::Extended;
    EXPECT_EQ("0002", ask(MessageType::MibUpload, 2, 0));
    EXPECT_EQ("05dc000b00018000", ask(MessageType::MibUploadNext, 2, 0, "0000").substr(0, 16));
    EXPECT_EQ("03e8000b00014000", ask(MessageType::MibUploadNext, 2, 0, "0001").substr(0, 16));
}

TEST_F(UnusualAdapters, UploadOfMoreFramesThanSixteenBitsCountFails)
{
    FakeOnuData onuData;
    FakeMe first(11, {});
    FakeMe second(12, {});
    for (unsigned instance = 0; instance < 40000; ++instance) {
        first.add(static_cast<unsigned short>(instance));
        second.add(static_cast<unsigned short>(instance));
    }
    OmciFrame frame = upload(Format::Baseline);
    unsigned short count = 0;
    EXPECT_EQ(-1, onuData.mibUploadExec(&frame, count));
    EXPECT_EQ(0xFFFF, count);
    EXPECT_EQ(0xFFFFU, onuData.uploads.size());
}

TEST_F(UnusualAdapters, ListThatTheAdapterDoesNotGiveIsEmpty)
{
    struct Refusing : FakeMe
    {
        Refusing() : FakeMe(100, {attribute(0x8000, 1, R | A), attribute(0, 4, R)}) {}
        int getAttributesListForAvc(std::list<attributeDefinition>*) const override { return -1; }
    } const me;
    const AttributeLists lists(me);
    EXPECT_TRUE(lists.avc.empty());
    EXPECT_EQ(2U, lists.get.size());
    EXPECT_EQ(0x8000, lists.knownMask) << "a definition without a mask is no attribute";
}

TEST_F(UnusualAdapters, ListsAreThoseOfTheAdapterThatAsks)
{
    const FakeMe registered(100, {attribute(0x8000, 1, R)});
    EXPECT_EQ(1, AttributeListCache::instance().of(registered)->size(0x8000));
    struct Other : FakeMe
    {
        using FakeMe::FakeMe;
    } const other(101, {attribute(0x8000, 4, R)});
    struct Namesake : Other
    {
        Namesake() : Other(102, {attribute(0x8000, 4, R)}) {}
        unsigned short getManagedEntityClassId() const override { return 100; }
    } const namesake;
    EXPECT_EQ(4, AttributeListCache::instance().of(namesake)->size(0x8000));
    EXPECT_EQ(1, AttributeListCache::instance().of(registered)->size(0x8000));
    AttributeListCache::instance().forget(100);
}

TEST_F(UnusualAdapters, AttributeThatExceedsAFrameIsNotReported)
{
    FakeMe me(11, {attribute(0x8000, 2000, R | A)});
    me.add(1);
    OmciMessage message;
    me.buildAttributeValueChangeMessage(1, 0x8000, &message);
    EXPECT_EQ(0, message.getMessageLength());
}

TEST_F(UnusualAdapters, AlarmThatTheAdapterDoesNotTakeIsNotSent)
{
    struct Deaf : FakeMe
    {
        Deaf() : FakeMe(11, {}) { add(1); }
        int updateAlarmsBitmap(unsigned short, unsigned char, bool) const override { return -1; }
    } const me;
    notifier.setMibKnown(true);
    EXPECT_FALSE(notifier.raiseAlarm(11, 1, 0, true));
    EXPECT_TRUE(sent.empty());
}

TEST_F(UnusualAdapters, TestResultThatExceedsTheFormatIsNotSent)
{
    const Bytes contents(kBaselineContentLength + 1);
    notifier.sendTestResult(1, 263, 0, contents.data(), contents.size());
    EXPECT_TRUE(sent.empty());
    notifier.setFormat(Format::Extended);
    notifier.sendTestResult(1, 263, 0, contents.data(), contents.size());
    EXPECT_EQ(1U, sent.size());
}

TEST_F(UnusualAdapters, ClassThatNeverWasMayBeUnregistered)
{
    EXPECT_EQ(0, OmciMeFactory::getInstance()->unregisterManagedEntity(60000));
    EXPECT_EQ(nullptr, OmciMeFactory::getInstance()->getManagedEntity(60000));
}

TEST_F(UnusualAdapters, DropReasonsHaveNames)
{
    EXPECT_STREQ("wrong MIC", dropReasonName(DropReason::WrongMic));
    EXPECT_STREQ("extended message refused", dropReasonName(DropReason::ExtendedRefused));
    EXPECT_STREQ("unknown reason", dropReasonName(static_cast<DropReason>(kDropReasons)));
}
