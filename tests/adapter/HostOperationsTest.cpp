// Operations that a class leaves to the host's base: what a plain adapter answers to them.
#include <cstdio>
#include <cstdlib>

#include "Frames.h"
#include "LibraryTest.h"
#include "OmciMe.h"

namespace {

using omci::MessageType;

constexpr unsigned short kProtectionData = 279;

class HostOperations : public LibraryTest
{
protected:
    HostOperations() { create(kProtectionData, 1); }

    static OmciMe& me() { return adapter(kProtectionData); }

    static OmciFrame request(MessageType type, std::vector<unsigned char> contents = {})
    {
        return requestFrame(type, kProtectionData, 1, std::move(contents));
    }
};

TEST_F(HostOperations, MibWideCommandsAndThoseOfImagesAreProcessingErrors)
{
    struct Operation
    {
        MessageType type;
        int (*run)(OmciMe&, OmciFrame*);
    };
    const Operation operations[] = {
        {MessageType::MibReset, [](OmciMe& me, OmciFrame* frame) { return me.mibReset(frame); }},
        {MessageType::MibUpload, [](OmciMe& me, OmciFrame* frame) { return me.mibUpload(frame); }},
        {MessageType::MibUploadNext, [](OmciMe& me, OmciFrame* frame) { return me.mibUploadNext(frame); }},
        {MessageType::GetAllAlarms, [](OmciMe& me, OmciFrame* frame) { return me.getAllAlarms(frame); }},
        {MessageType::GetAllAlarmsNext, [](OmciMe& me, OmciFrame* frame) { return me.getAllAlarmsNext(frame); }},
        {MessageType::StartSoftwareDownload,
         [](OmciMe& me, OmciFrame* frame) { return me.startSoftwareDownload(frame); }},
        {MessageType::DownloadSection, [](OmciMe& me, OmciFrame* frame) { return me.downloadSection(frame); }},
        {MessageType::EndSoftwareDownload, [](OmciMe& me, OmciFrame* frame) { return me.endSoftwareDownload(frame); }},
        {MessageType::ActivateImage, [](OmciMe& me, OmciFrame* frame) { return me.activateSoftwareImage(frame); }},
        {MessageType::CommitImage, [](OmciMe& me, OmciFrame* frame) { return me.commitSoftware(frame); }},
        {MessageType::SynchronizeTime, [](OmciMe& me, OmciFrame* frame) { return me.synchronizeTime(frame); }},
        {MessageType::Reboot, [](OmciMe& me, OmciFrame* frame) { return me.reboot(frame); }},
    };
    for (const Operation& operation : operations) {
        OmciFrame frame = request(operation.type);
        EXPECT_EQ(operation.run(me(), &frame), -1) << messageTypeName(operation.type);
        EXPECT_TRUE(frame.hasReply()) << messageTypeName(operation.type);
        EXPECT_EQ(frame.getReplyResult(), 1) << messageTypeName(operation.type);
    }
}

TEST_F(HostOperations, SnapshotsAndDataSyncBelongToOnuData)
{
    unsigned char buffer[32] = {};
    unsigned short length = sizeof buffer;
    EXPECT_EQ(me().setMibUploadMessage(0, buffer, sizeof buffer), -1);
    EXPECT_EQ(me().getMibUploadMessage(0, buffer, &length), -1);
    EXPECT_EQ(me().setGetAllAlarmsMessage(0, buffer, sizeof buffer), -1);
    EXPECT_EQ(me().incrementMibDataSyncAttribute(), -1);
    EXPECT_EQ(me().mibReset(), -1);
    EXPECT_EQ(me().findManagedEntityInstance(1), 0) << "nothing was reset";
}

TEST_F(HostOperations, TestIsNotSupportedAndLeavesTheReplyToTheHost)
{
    OmciFrame frame = request(MessageType::Test, {7});
    EXPECT_EQ(me().test(&frame), 2);
    EXPECT_FALSE(frame.hasReply());
}

TEST_F(HostOperations, GetNextOfAClassWithoutTablesIsNotSupported)
{
    OmciFrame frame = request(MessageType::GetNext, {0x80, 0, 0, 0});
    EXPECT_EQ(me().getNext(&frame), -1);
    EXPECT_EQ(frame.getReplyResult(), 2);
}

TEST_F(HostOperations, GetCurrentDataIsAGet)
{
    set(kProtectionData, 1, 0x8000, std::vector<unsigned char>{0x04, 0x01});
    OmciFrame frame = request(MessageType::GetCurrentData, {0x80, 0});
    EXPECT_EQ(me().getCurrentData(&frame), 0);
    const std::vector<unsigned char> contents = replyContents(frame);
    EXPECT_EQ(std::vector<unsigned char>(contents.begin(), contents.begin() + 5),
              (std::vector<unsigned char>{0, 0x80, 0, 0x04, 0x01}));
}

TEST_F(HostOperations, DownloadStatusOfAClassWithoutImagesIsEmpty)
{
    char* text = nullptr;
    std::size_t length = 0;
    std::FILE* const file = open_memstream(&text, &length);
    ASSERT_NE(file, nullptr);
    me().updateRxOmciFifoDepthInBytes(4096);
    me().showSoftwareDownloadStatus(file);
    std::fclose(file);
    EXPECT_EQ(length, 0U);
    std::free(text);
}

}  // namespace
