// Copies of requests that a network delivers late, doubled or out of order.

#include <chrono>
#include <random>
#include <string>

#include "DispatcherFixture.h"
#include "host/RecentRequests.h"

using namespace omci;

namespace {

class Copies : public DispatcherTest
{
protected:
    Copies() { me.add(1); }

    Bytes set(std::uint16_t transactionId, const std::string& value)
    {
        FrameHeader request = header(MessageType::Set, 100, 1);
        request.transactionId = transactionId;
        return frame(request, "8000 " + value);
    }

    Bytes get(std::uint16_t transactionId)
    {
        FrameHeader request = header(MessageType::Get, 100, 1);
        request.transactionId = transactionId;
        return frame(request, "8000");
    }

    Bytes handleFrom(std::uint64_t peer, const Bytes& bytes)
    {
        const Dispatcher::Reply reply = dispatcher.handle(bytes.data(), bytes.size(), peer);
        return {reply.data, reply.data + reply.length};
    }

    std::string value() { return toHex(me.instances[1].values[0x8000]); }

    FakeOnuData onuData;
    FakeMe me{100, {attribute(0x8000, 1, C | R | W)}};
};

}  // namespace

TEST_F(Copies, LateSetDoesNotBringBackAnOldValue)
{
    const Bytes first = handle(set(5, "01"));
    handle(set(6, "02"));
    EXPECT_EQ(toHex(first), toHex(handle(set(5, "01"))));
    EXPECT_EQ("02", value());
    EXPECT_EQ(2U, onuData.dataSync);
    EXPECT_EQ(1U, dispatcher.statistics().retransmissions);
}

TEST_F(Copies, RetransmissionBehindALateCopyOfAnotherGetsItsOwnReply)
{
    const Bytes create = frame(header(MessageType::Create, 100, 9), "11");
    const Bytes early = get(5);
    handle(early);
    EXPECT_EQ("00", toHex(handle(create)).substr(16, 2));
    handle(early);
    EXPECT_EQ("00", toHex(handle(create)).substr(16, 2));
}

TEST_F(Copies, ReadingRunsAgainAndTellsWhatHoldsNow)
{
    handle(get(5));
    handle(set(6, "42"));
    EXPECT_EQ("42", toHex(handle(get(5))).substr(22, 2));
}

TEST_F(Copies, TransactionIdsAreEachPeersOwn)
{
    handleFrom(1, set(5, "01"));
    handleFrom(2, set(6, "02"));
    handleFrom(3, set(5, "01"));
    EXPECT_EQ("01", value());
    handleFrom(2, set(7, "03"));
    // Of a peer that has said nothing since.
    handleFrom(1, set(5, "01"));
    EXPECT_EQ("03", value());
}

TEST_F(Copies, SameRequestOfAnotherPeerIsNoRetransmission)
{
    handleFrom(1, get(5));
    handleFrom(2, get(5));
    EXPECT_EQ(2U, me.reads);
    EXPECT_EQ(0U, dispatcher.statistics().retransmissions);
}

TEST_F(Copies, PeerThatDoesNotCountItsTransactionsIsHeardEachTime)
{
    handle(set(1, "01"));
    handle(set(1, "02"));
    handle(set(1, "01"));
    EXPECT_EQ("01", value());
    EXPECT_EQ(0U, dispatcher.statistics().retransmissions);
}

TEST_F(Copies, PeerThatReadsUnderTheSameIdIsHeardEachTimeToo)
{
    handle(set(1, "01"));
    handle(get(1));
    me.instances[1].values[0x8000] = fromHex("77");
    handle(set(1, "01"));
    EXPECT_EQ("01", value());
}

TEST_F(Copies, RestartForgetsThem)
{
    handle(set(5, "01"));
    handle(set(6, "02"));
    dispatcher.forgetRequests();
    handle(set(5, "01"));
    EXPECT_EQ("01", value());
}

TEST_F(Copies, CopyIsKnownBehindAThousandOtherRequestsAndNoLongerAnswered)
{
    handle(set(5, "01"));
    for (std::uint16_t id = 6; id < 6 + 1000; ++id) {
        handle(set(id, "02"));
    }
    EXPECT_TRUE(handle(set(5, "01")).empty());
    EXPECT_EQ("02", value());
    EXPECT_EQ(1000U + 1U, dispatcher.statistics().replies);
}

TEST(RecentRequests, CopyIsOneOnlyForSomeTime)
{
    RecentRequests recent;
    FrameHeader header;
    header.type = MessageType::Set;
    header.transactionId = 5;
    const Bytes octets = fromHex("0102");
    const auto start = RecentRequests::Clock::now();
    const auto isCopy = [&](std::chrono::milliseconds later) {
        return recent.find(1, header, octets.data(), octets.size(), start + later, std::chrono::seconds(3)).isCopy;
    };
    EXPECT_FALSE(isCopy(std::chrono::milliseconds(0)));
    recent.remember(octets.data(), octets.size());
    EXPECT_TRUE(isCopy(std::chrono::milliseconds(2999)));
    EXPECT_TRUE(isCopy(std::chrono::milliseconds(5999)));
    EXPECT_FALSE(isCopy(std::chrono::milliseconds(9000)));
}

namespace {

class Sections : public testing::Test
{
protected:
    bool isCopy(std::uint16_t transactionId, const std::string& hex, MessageType type = MessageType::DownloadSection,
                bool endsWindow = false)
    {
        FrameHeader section;
        section.type = type;
        section.transactionId = transactionId;
        section.acknowledgeRequest = endsWindow;
        const Bytes octets = fromHex(hex);
        return recent.find(1, section, octets.data(), octets.size(), now, std::chrono::seconds(3)).isCopy;
    }

    /// New sections with these ids.
    void count(std::uint16_t first, std::uint16_t last)
    {
        for (std::uint16_t id = first; id <= last; ++id) {
            EXPECT_FALSE(isCopy(id, std::to_string(1000 + id)));
        }
    }

    RecentRequests recent;
    RecentRequests::Clock::time_point now = RecentRequests::Clock::now();
};

}  // namespace

TEST_F(Sections, OneOfAnEarlierWindowIsNotTakenForOneOfTheNext)
{
    EXPECT_FALSE(isCopy(5, "00AA"));
    EXPECT_FALSE(isCopy(6, "01BB"));
    recent.endWindow(false);
    EXPECT_FALSE(isCopy(7, "00CC"));
    EXPECT_TRUE(isCopy(5, "00AA"));
}

TEST_F(Sections, RefusedWindowMayComeAgainWithTheSameIds)
{
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(isCopy(5, "00AA"));
        EXPECT_FALSE(isCopy(6, "01BB"));
        recent.endWindow(i == 0);
    }
    EXPECT_TRUE(isCopy(6, "01BB"));
}

TEST_F(Sections, OfARefusedWindowAreLateOnceItComesWithNewIds)
{
    EXPECT_FALSE(isCopy(5, "00AA"));
    EXPECT_FALSE(isCopy(6, "01BB"));
    recent.endWindow(true);
    EXPECT_FALSE(isCopy(7, "00AA"));
    EXPECT_TRUE(isCopy(6, "01BB"));
}

TEST_F(Sections, OvertakenByItsWindowIsLateThoughItNeverCame)
{
    count(1, 20);
    EXPECT_FALSE(isCopy(22, "02CC"));
    recent.endWindow(true);
    EXPECT_FALSE(isCopy(23, "00AA"));
    EXPECT_TRUE(isCopy(21, "01BB"));
}

TEST_F(Sections, AnOltWhoseIdsDoNotCountIsHeard)
{
    std::mt19937 random(1);
    for (int window = 0; window < 100; ++window) {
        for (int section = 0; section < 32; ++section) {
            EXPECT_FALSE(isCopy(static_cast<std::uint16_t>(1 + random() % 0x7FFF),
                                std::to_string(100000 + window * 32 + section)));
            now += std::chrono::seconds(4);
        }
        recent.endWindow(false);
    }
}

TEST_F(Sections, OneThatEndsAWindowIsNeverLate)
{
    count(1, 20);
    recent.endWindow(false);
    now += std::chrono::seconds(4);
    EXPECT_TRUE(isCopy(10, "07AA"));
    EXPECT_FALSE(isCopy(10, "07AA", MessageType::DownloadSection, true));
}

TEST_F(Sections, LostOneOfARefusedWindowMayComeWithItsFirstId)
{
    EXPECT_FALSE(isCopy(5, "00AA"));
    EXPECT_FALSE(isCopy(7, "02CC"));
    recent.endWindow(true);
    EXPECT_FALSE(isCopy(5, "00AA"));
    EXPECT_FALSE(isCopy(6, "01BB"));
    EXPECT_FALSE(isCopy(7, "02CC"));
}

TEST_F(Sections, OltThatCountsThemInEachWindowAnewIsHeard)
{
    for (const char* const octets : {"00AA", "00BB", "00CC"}) {
        EXPECT_FALSE(isCopy(1, octets));
        EXPECT_FALSE(isCopy(2, "01DD" + std::string(octets)));
        recent.endWindow(false);
    }
}

TEST_F(Sections, NextDownloadMayBeginWithLowerIds)
{
    EXPECT_FALSE(isCopy(100, "00AA"));
    recent.endWindow(false);
    EXPECT_FALSE(isCopy(1, "03", MessageType::StartSoftwareDownload));
    EXPECT_FALSE(isCopy(2, "00AA"));
}
