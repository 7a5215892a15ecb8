// What a class answers to operations that its adapter does not take over, and how short frames read.

#include "DispatcherFixture.h"
#include "host/CommandExecutor.h"

using namespace omci;

namespace {

/// A request of class 100 with these contents, as the adapter gets it.
OmciFrame request(MessageType type, const std::string& hex, Format format = Format::Extended)
{
    const Bytes contents = fromHex(hex);
    FrameView view;
    view.header.type = type;
    view.header.format = format;
    view.header.acknowledgeRequest = true;
    view.header.entityClass = 100;
    view.header.entityInstance = 1;
    view.contents = contents.data();
    view.contentsLength = contents.size();
    OmciFrame frame;
    frame.setRequest(view);
    return frame;
}

std::string replyOf(const OmciFrame& frame)
{
    return toHex(frame.getReplyContent(), frame.getReplyContentLength());
}

class BaseBodies : public testing::Test
{
protected:
    BaseBodies() { me.add(1); }

    FakeMe me{100, {attribute(0x8000, 1, R), attribute(0x4000, 8, R | N, true)}};
};

}  // namespace

TEST_F(BaseBodies, OperationsOnTheMibAnswerAProcessingError)
{
    using Operation = int (*)(OmciMe&, OmciFrame*);
    const std::pair<MessageType, Operation> operations[] = {
        {MessageType::MibReset, [](OmciMe& of, OmciFrame* frame) { return of.mibReset(frame); }},
        {MessageType::MibUpload, [](OmciMe& of, OmciFrame* frame) { return of.mibUpload(frame); }},
        {MessageType::GetAllAlarms, [](OmciMe& of, OmciFrame* frame) { return of.getAllAlarms(frame); }},
        {MessageType::MibUploadNext, [](OmciMe& of, OmciFrame* frame) { return of.mibUploadNext(frame); }},
        {MessageType::GetAllAlarmsNext, [](OmciMe& of, OmciFrame* frame) { return of.getAllAlarmsNext(frame); }},
    };
    for (const auto& [type, operation] : operations) {
        OmciFrame frame = request(type, "0000");
        EXPECT_EQ(-1, operation(me, &frame)) << messageTypeName(type);
        EXPECT_TRUE(frame.hasReply()) << messageTypeName(type);
        EXPECT_EQ(1, frame.getReplyResult()) << messageTypeName(type);
        EXPECT_EQ(-1, operation(me, nullptr)) << messageTypeName(type);
    }
}

TEST_F(BaseBodies, SnapshotsBelongToOnuDataAlone)
{
    unsigned char buffer[32] = {};
    unsigned short length = 7;
    EXPECT_EQ(-1, me.setMibUploadMessage(0, buffer, sizeof buffer));
    EXPECT_EQ(-1, me.setGetAllAlarmsMessage(0, buffer, sizeof buffer));
    EXPECT_EQ(-1, me.getMibUploadMessage(0, buffer, &length));
    EXPECT_EQ(7, length);
    EXPECT_EQ(-1, me.incrementMibDataSyncAttribute());
    EXPECT_EQ(-1, static_cast<const OmciMe&>(me).mibReset());
}

TEST_F(BaseBodies, WithoutAFrameThereIsNoReply)
{
    EXPECT_EQ(-1, me.OmciMe::getAttribute(nullptr));
    EXPECT_EQ(-1, me.getCurrentData(nullptr));
    EXPECT_EQ(-1, me.getNext(nullptr));
    EXPECT_EQ(-1, me.test(nullptr));
    EXPECT_EQ(-1, me.reboot(nullptr));
    EXPECT_EQ(-1, me.startSoftwareDownload(nullptr));
}

TEST_F(BaseBodies, DownloadStatusOfAClassWithoutDownloadsIsEmpty)
{
    char* text = nullptr;
    std::size_t length = 0;
    std::FILE* const file = open_memstream(&text, &length);
    ASSERT_NE(nullptr, file);
    me.updateRxOmciFifoDepthInBytes(4096);
    me.showSoftwareDownloadStatus(file);
    std::fclose(file);
    EXPECT_EQ(0U, length);
    std::free(text);
}

TEST_F(BaseBodies, GetWithoutAWholeMaskIsAParameterError)
{
    OmciFrame frame = request(MessageType::Get, "80");
    EXPECT_EQ(-1, me.OmciMe::getAttribute(&frame));
    EXPECT_EQ(3, frame.getReplyResult());
}

TEST_F(BaseBodies, GetNextWithoutMaskAndNumberIsAParameterError)
{
    OmciFrame frame = request(MessageType::GetNext, "4000");
    EXPECT_EQ(-1, me.getNext(&frame));
    EXPECT_EQ("030000", replyOf(frame));
}

TEST_F(BaseBodies, MessageThatOnlyTheOnuSendsIsNoCommand)
{
    const CommandExecutor executor(nullptr);
    OmciFrame frame = request(MessageType::Alarm, "");
    executor.execute(frame);
    EXPECT_EQ(1, frame.getReplyResult());
    OmciFrame ofMissing = request(MessageType::Alarm, "");
    me.instances.clear();
    executor.execute(ofMissing);
    EXPECT_EQ(5, ofMissing.getReplyResult());
}

TEST(ShortFrames, FieldsThatDidNotComeReadAsZero)
{
    const OmciFrame start = request(MessageType::StartSoftwareDownload, "1f 0000");
    EXPECT_EQ(0, start.getWindowSizeInStartSoftwareDownload());
    EXPECT_EQ(0U, start.getImageSizeInStartSoftwareDownload());
    const OmciFrame end = request(MessageType::EndSoftwareDownload, "01020304 0000");
    EXPECT_EQ(0U, end.getCRC32FromEndSoftwareDownload());
    EXPECT_EQ(0U, end.getImageSizeInEndSoftwareDownload());
    const OmciFrame section = request(MessageType::DownloadSection, "");
    EXPECT_EQ(0, section.getDownloadSectionNumberInDownloadSection(true));
    EXPECT_EQ(nullptr, section.getMessageContent());
}

TEST(ShortFrames, ReplyLongerThanAFrameIsCut)
{
    OmciFrame frame = request(MessageType::MibUploadNext, "0000", Format::Baseline);
    const Bytes snapshot(100, 0x11);
    frame.setFrameToSendBackToOLT(0, 0, 0, 0, snapshot.data(), 100);
    EXPECT_EQ(std::string(64, '1'), replyOf(frame));
    frame.setFrameToSendBackToOLT(1, 0, 0, 0, snapshot.data(), 100);
    EXPECT_EQ("", replyOf(frame));
}
