// What the dispatcher does around a command: MIC, drops, retransmissions, counters.

#include <initializer_list>
#include <thread>

#include "DispatcherFixture.h"

using namespace omci;

namespace {

class Dispatching : public DispatcherTest
{
protected:
    Dispatching() { me.add(1); }

    Bytes getRequest(std::uint16_t transactionId)
    {
        FrameHeader request = header(MessageType::Get, 100, 1);
        request.transactionId = transactionId;
        return frame(request, "8000");
    }

    FakeOnuData onuData;
    FakeMe me{100, {attribute(0x8000, 1, C | R | W)}};
};

}  // namespace

TEST_F(Dispatching, RetransmissionGetsTheLastReplyWithoutRunning)
{
    const Bytes first = handle(getRequest(5));
    me.instances[1].values[0x8000] = fromHex("55");
    EXPECT_EQ(toHex(first), toHex(handle(getRequest(5))));
    EXPECT_EQ(1U, me.reads);
    EXPECT_EQ(1U, dispatcher.statistics().retransmissions);
    EXPECT_EQ("55", toHex(handle(getRequest(6))).substr(22, 2));
}

TEST_F(Dispatching, RetransmittedCreateIsNotAnsweredInstanceExists)
{
    const Bytes request = frame(header(MessageType::Create, 100, 9), "11");
    EXPECT_EQ("00", toHex(handle(request)).substr(16, 2));
    EXPECT_EQ("00", toHex(handle(request)).substr(16, 2));
    EXPECT_EQ(1U, onuData.dataSync);
}

TEST_F(Dispatching, SameTransactionWithOtherContentsRuns)
{
    FrameHeader request = header(MessageType::Set, 100, 1);
    handle(frame(request, "8000 01"));
    handle(frame(request, "8000 02"));
    EXPECT_EQ("02", toHex(me.instances[1].values[0x8000]));
    EXPECT_EQ(0U, dispatcher.statistics().retransmissions);
}

TEST_F(Dispatching, EachPriorityKeepsItsLastRequest)
{
    handle(getRequest(5));
    handle(getRequest(0x8005));
    handle(getRequest(5));
    handle(getRequest(0x8005));
    EXPECT_EQ(2U, me.reads);
    EXPECT_EQ(2U, dispatcher.statistics().retransmissions);
    handle(getRequest(7));
    handle(getRequest(5));
    EXPECT_EQ(4U, me.reads);
}

TEST_F(Dispatching, RequestsWithoutAnIdOrAReplyAreNotKept)
{
    handle(getRequest(0));
    handle(getRequest(0));
    EXPECT_EQ(2U, me.reads);
    Bytes silent = getRequest(9);
    silent[2] &= 0xBF;
    handle(silent);
    handle(silent);
    EXPECT_EQ(4U, me.reads);
    EXPECT_EQ(0U, dispatcher.statistics().retransmissions);
}

TEST_F(Dispatching, ForgottenRequestsRunAgain)
{
    handle(getRequest(5));
    dispatcher.forgetRequests();
    handle(getRequest(5));
    EXPECT_EQ(2U, me.reads);
}

TEST_F(Dispatching, RetransmissionMayLackTrailerAndMic)
{
    Bytes request = getRequest(5);
    handle(request);
    request.resize(40);
    EXPECT_EQ(48U, handle(request).size());
    EXPECT_EQ(1U, me.reads);
}

TEST_F(Dispatching, RequestWithoutAcknowledgeRequestRunsSilently)
{
    FrameHeader request = header(MessageType::Set, 100, 1);
    request.acknowledgeRequest = false;
    EXPECT_TRUE(handle(frame(request, "8000 42")).empty());
    EXPECT_EQ("42", toHex(me.instances[1].values[0x8000]));
    EXPECT_EQ(0U, dispatcher.statistics().replies);
}

TEST_F(Dispatching, ResponsesAndNotificationsAreDropped)
{
    Bytes response = getRequest(5);
    response[2] = 0x29;
    EXPECT_TRUE(handle(response).empty());
    Bytes alarm = getRequest(5);
    alarm[2] = 0x50;
    EXPECT_TRUE(handle(alarm).empty());
    EXPECT_EQ(2U, dispatcher.statistics().dropped(DropReason::NotARequest));
    EXPECT_EQ(0U, me.reads);
}

TEST_F(Dispatching, FramesWithoutSomebodyToAnswerAreDroppedByReason)
{
    Bytes bytes = getRequest(5);
    bytes.resize(7);
    EXPECT_TRUE(handle(bytes).empty());
    bytes = getRequest(5);
    bytes[3] = 0x33;
    EXPECT_TRUE(handle(bytes).empty());
    bytes = getRequest(5);
    bytes[2] |= 0x80;
    EXPECT_TRUE(handle(bytes).empty());
    bytes = getRequest(5);
    bytes[2] &= 0xBF;
    bytes.resize(39);
    EXPECT_TRUE(handle(bytes).empty());
    bytes.resize(60);
    EXPECT_TRUE(handle(bytes).empty());
    const Statistics& statistics = dispatcher.statistics();
    EXPECT_EQ(1U, statistics.dropped(DropReason::TooShort));
    EXPECT_EQ(1U, statistics.dropped(DropReason::UnknownDeviceId));
    EXPECT_EQ(1U, statistics.dropped(DropReason::InvalidMessageType));
    EXPECT_EQ(1U, statistics.dropped(DropReason::Truncated));
    EXPECT_EQ(1U, statistics.dropped(DropReason::Oversized));
}

TEST_F(Dispatching, TruncatedAndOversizedFramesWithAHeaderGetAParameterError)
{
    Bytes bytes = getRequest(5);
    bytes.resize(39);
    EXPECT_EQ("0005290a0064000103", toHex(handle(bytes)).substr(0, 18));
    bytes = getRequest(6);
    bytes.resize(49);
    EXPECT_EQ("0006290a0064000103", toHex(handle(bytes)).substr(0, 18));
    format = Format::Extended;
    bytes = getRequest(7);
    bytes[9] = 200;
    EXPECT_EQ("0007290b00640001000703", toHex(handle(bytes)).substr(0, 22));
    EXPECT_EQ(0U, me.reads);
    EXPECT_EQ("0008290b00640001", toHex(handle(getRequest(8))).substr(0, 16));
}

TEST_F(Dispatching, DropsAreLoggedAsWarnings)
{
    std::vector<std::string> lines;
    Logger::getInstance(kHostLoggerId)
        ->setObserver(
            [](const Logger::Line& line, void* context) {
                static_cast<std::vector<std::string>*>(context)->push_back(std::to_string(line.level) + line.text);
            },
            &lines);
    Bytes bytes = getRequest(5);
    bytes.resize(3);
    handle(bytes);
    Logger::getInstance(kHostLoggerId)->setObserver(nullptr, nullptr);
    ASSERT_EQ(1U, lines.size());
    EXPECT_EQ(0U, lines[0].find("4Frame of 3 octets dropped: too short for a header"));
}

TEST_F(Dispatching, MicIsCheckedAndSealed)
{
    std::string problem;
    for (const char* text : {"crc32", "cmac:00112233445566778899aabbccddeeff"}) {
        Dispatcher guarded(*Mic::parse(text, problem));
        const Mic mic = *Mic::parse(text, problem);
        Bytes request = getRequest(5);
        EXPECT_EQ(0U, guarded.handle(request.data(), request.size()).length);
        EXPECT_EQ(0U, guarded.handle(request.data(), 44).length);
        mic.seal(request.data(), request.size(), Direction::Downstream);
        const Dispatcher::Reply reply = guarded.handle(request.data(), request.size());
        ASSERT_EQ(48U, reply.length);
        EXPECT_TRUE(mic.check(reply.data, reply.length, Direction::Upstream));
        EXPECT_EQ(0U, guarded.handle(request.data(), 39).length);
        EXPECT_EQ(2U, guarded.statistics().dropped(DropReason::WrongMic));
        EXPECT_EQ(1U, guarded.statistics().dropped(DropReason::Truncated));
    }
}

TEST_F(Dispatching, CountsByTypeFormatAndResult)
{
    handle(getRequest(1));
    format = Format::Extended;
    handle(getRequest(2));
    ask(MessageType::Get, 100, 77, "8000");
    ask(MessageType::Set, 100, 1, "8000 01");
    const Statistics& statistics = dispatcher.statistics();
    EXPECT_EQ(3U, statistics.requests[9]);
    EXPECT_EQ(1U, statistics.requests[8]);
    EXPECT_EQ(1U, statistics.baselineRequests);
    EXPECT_EQ(3U, statistics.extendedRequests);
    EXPECT_EQ(3U, statistics.results[0]);
    EXPECT_EQ(1U, statistics.results[5]);
    EXPECT_EQ(4U, statistics.replies);
}

namespace {

/// A software image that takes sections and leaves its replies to be set by the test.
class FakeImage : public FakeMe
{
public:
    FakeImage() : FakeMe(7, {}) { add(0); }

    int downloadSection(OmciFrame* frame) override
    {
        section = frame->getDownloadSectionNumberInDownloadSection(true);
        length = frame->getMessageContentLength();
        if (frame->getMessageTypeAR() == 0) {
            return 1;
        }
        frame->setFrameToSendBackToOLT(0, section, 0, 0, nullptr, 0);
        return 0;
    }
    int startSoftwareDownload(OmciFrame* frame) override
    {
        window = frame->getWindowSizeInStartSoftwareDownload();
        size = frame->getImageSizeInStartSoftwareDownload();
        if (findManagedEntityInstance(frame->getManagedEntityInstance()) != 0) {
            return -1;
        }
        frame->setFrameToSendBackToOLT(0, 15, 0, 0, nullptr, 0);
        return 0;
    }
    int endSoftwareDownload(OmciFrame* frame) override
    {
        crc = frame->getCRC32FromEndSoftwareDownload();
        size = frame->getImageSizeInEndSoftwareDownload();
        return 11;
    }
    int commitSoftware(OmciFrame*) override { return 0; }

    unsigned short section = 0;
    unsigned length = 0;
    unsigned window = 0;
    unsigned size = 0;
    unsigned crc = 0;
};

}  // namespace

TEST_F(Dispatching, SoftwareDownloadFieldsAndReplies)
{
    FakeImage image;
    EXPECT_EQ(padded("000f00"), ask(MessageType::StartSoftwareDownload, 7, 0, "1f 000f4240 01 0000"));
    EXPECT_EQ(31U, image.window);
    EXPECT_EQ(1000000U, image.size);
    FrameHeader section = header(MessageType::DownloadSection, 7, 0);
    section.acknowledgeRequest = false;
    EXPECT_TRUE(handle(frame(section, "03 aabb")).empty());
    EXPECT_EQ(3U, image.section);
    EXPECT_EQ(32U, image.length);
    EXPECT_EQ(padded("0004"), ask(MessageType::DownloadSection, 7, 0, "04 aabb"));
    // An end whose thread could not be started leaves no reply behind.
    EXPECT_EQ(padded("01"), ask(MessageType::EndSoftwareDownload, 7, 0, "01020304 000f4240 01 0000"));
    EXPECT_EQ(0x01020304U, image.crc);
    EXPECT_EQ(padded("00"), ask(MessageType::CommitImage, 7, 0));
    EXPECT_EQ(padded("0500"), ask(MessageType::StartSoftwareDownload, 7, 4, "1f 000f4240 01 0000"));
    format = Format::Extended;
    EXPECT_EQ("0004", ask(MessageType::DownloadSection, 7, 0, "04"));
    EXPECT_EQ(1U, image.length);
}

TEST_F(Dispatching, TestAnswersItsReturnValue)
{
    struct Tested : FakeMe
    {
        Tested() : FakeMe(263, {}) { add(0); }
        int test(OmciFrame* frame) const override
        {
            const unsigned char* contents = frame->getMessageContent();
            return contents == nullptr ? 1 : contents[0] == 7 ? 0 : contents[0] == 9 ? -1 : 3;
        }
    } const tested;
    EXPECT_EQ(padded("00"), ask(MessageType::Test, 263, 0, "07"));
    EXPECT_EQ(padded("03"), ask(MessageType::Test, 263, 0, "06"));
    EXPECT_EQ(padded("01"), ask(MessageType::Test, 263, 0, "09"));
    format = Format::Extended;
    EXPECT_EQ("01", ask(MessageType::Test, 263, 0));
}

TEST_F(Dispatching, GetNextReplyCarriesMaskAndData)
{
    struct Table : FakeMe
    {
        Table() : FakeMe(158, {attribute(0x2000, 29, R | N, true)}) { add(0); }
        int getNext(OmciFrame* frame) const override
        {
            const Bytes row(40, 0x77);
            frame->setFrameToSendBackToOLT(result, 0, 0, 0x2000, row.data(), length);
            return 0;
        }
        unsigned char result = 0;
        unsigned short length = 29;
    } table;
    EXPECT_EQ("002000" + std::string(58, '7'), ask(MessageType::GetNext, 158, 0, "2000 0000"));
    table.length = 32;
    EXPECT_EQ(64U, ask(MessageType::GetNext, 158, 0, "2000 0001").size());
    table.result = 3;
    EXPECT_EQ(padded("032000"), ask(MessageType::GetNext, 158, 0, "2000 0005"));
    format = Format::Extended;
    EXPECT_EQ("032000", ask(MessageType::GetNext, 158, 0, "2000 0005"));
    table.result = 0;
    table.length = 29;
    EXPECT_EQ("002000" + std::string(58, '7'), ask(MessageType::GetNext, 158, 0, "2000 0000"));
}

TEST_F(Dispatching, BaselineOnlyHostIsDeafToExtendedMessages)
{
    dispatcher.takeBaselineOnly();
    format = Format::Extended;
    EXPECT_TRUE(handle(frame(header(MessageType::Get, 100, 1), "8000")).empty());
    Bytes broken = frame(header(MessageType::Get, 100, 1), "8000");
    broken.resize(11);
    EXPECT_TRUE(handle(broken).empty());
    EXPECT_EQ(0U, me.reads);
    EXPECT_EQ(2U, dispatcher.statistics().dropped(DropReason::ExtendedRefused));
    EXPECT_EQ(0U, dispatcher.statistics().extendedRequests);
    format = Format::Baseline;
    EXPECT_EQ("00", ask(MessageType::Get, 100, 1, "8000").substr(0, 2));
}

TEST_F(Dispatching, CountersTellFormatResultAndClassOfEachMessage)
{
    ask(MessageType::Get, 100, 1, "8000");
    ask(MessageType::Get, 100, 7, "8000");
    ask(MessageType::Get, 101, 1, "8000");
    format = Format::Extended;
    ask(MessageType::Get, 100, 1, "8000");
    const auto get = static_cast<std::size_t>(MessageType::Get);
    const Statistics& counted = dispatcher.statistics();
    EXPECT_EQ(4U, counted.requests[get]);
    EXPECT_EQ(1U, counted.extendedByType[get]);
    EXPECT_EQ(2U, counted.resultsByType[get][0]);
    EXPECT_EQ(1U, counted.resultsByType[get][static_cast<std::size_t>(Result::UnknownInstance)]);
    EXPECT_EQ(1U, counted.resultsByType[get][static_cast<std::size_t>(Result::UnknownManagedEntity)]);
    // A class that the host doesn't have takes no place.
    ASSERT_EQ(1U, counted.handlers.size());
    const HandlerTime& handler = counted.handlers.at(100);
    EXPECT_EQ(3U, handler.requests);
    EXPECT_EQ(get, handler.slowestType);
    EXPECT_LE(handler.slowest, handler.total);
}

TEST_F(Dispatching, ClassesWithTheSameLastOctetAreCountedApart)
{
    FakeMe neighbour{100 + 256, {attribute(0x8000, 1, R | W)}};
    neighbour.add(1);
    for (const unsigned short classId : std::initializer_list<unsigned short>{100, 356, 356, 100, 356}) {
        ask(MessageType::Get, classId, 1, "8000");
    }
    EXPECT_EQ(2U, dispatcher.statistics().handlers.at(100).requests);
    EXPECT_EQ(3U, dispatcher.statistics().handlers.at(356).requests);
}
