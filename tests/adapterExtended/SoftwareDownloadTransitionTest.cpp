// The two tables of a download's states: what each event makes of each state, and what the OLT hears.
#include "SoftwareDownloadTest.h"

class SoftwareDownloadTransition : public SoftwareDownloadTest
{
protected:
    enum class Event
    {
        GoodStart,
        StartOfSizeZero,
        StartWithoutRoom,
        StartOfCommittedImage,
        Section,
        AcknowledgedSection,
        WrongAcknowledgedSection,
        LastSection,
        TimeOut,
        GoodEnd,
        BadEnd
    };

    /// A download of 93 bytes that has reached a state by the OLT's own commands, or by decree where the OLT can't.
    void reach(unsigned short state)
    {
        if (state == 1 || state == 3 || state == 4) {
            ASSERT_EQ(start(93), 0);
        }
        if (state == 3) {
            ASSERT_EQ(section(0, part(0), true), 0);
        } else if (state == 4) {
            sendImage(image);
        } else if (state != 1) {
            ASSERT_EQ(start(0), -1);
            putStatus(state);
        }
        ASSERT_EQ(status(), state);
    }
    void happens(Event event)
    {
        reply = OmciFrame();
        switch (event) {
        case Event::GoodStart:
            start(93, 9);
            break;
        case Event::StartOfSizeZero:
            start(0);
            break;
        case Event::StartWithoutRoom:
            Sandbox::setFreeSpace(10);
            start(93);
            break;
        case Event::StartOfCommittedImage:
            start(93, 9, 0);
            break;
        case Event::Section:
            section(0, part(1), false);
            break;
        case Event::AcknowledgedSection:
            section(0, part(1), true);
            break;
        case Event::WrongAcknowledgedSection:
            section(4, part(1), true);
            break;
        case Event::LastSection:
            section(0, part(1), false);
            section(1, part(2), false);
            section(2, part(2), true);
            break;
        case Event::TimeOut:
            Adapter::timerHandler({});
            break;
        case Event::GoodEnd:
            end(crcOf(image), 93);
            break;
        case Event::BadEnd:
            end(crcOf(image) ^ 1, 93);
            break;
        }
    }
    Image part(std::size_t number) const
    {
        const auto begin = image.begin() + static_cast<std::ptrdiff_t>(number * 31);
        return {begin, begin + 31};
    }

    struct Row
    {
        std::vector<unsigned short> from;
        Event event;
        int to;  ///< -1: unchanged
        bool inProgress;
        const char* reply;
    };
    void check(const std::vector<Row>& rows)
    {
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (const unsigned short from : rows[row].from) {
                SCOPED_TRACE("row " + std::to_string(row) + " from " + std::to_string(from));
                nrvk::forgetSoftwareDownload();
                Sandbox::setFreeSpace(1U << 30);
                reach(from);
                happens(rows[row].event);
                EXPECT_EQ(replied(), rows[row].reply);
                EXPECT_EQ(status(), rows[row].to < 0 ? from : static_cast<unsigned int>(rows[row].to));
                EXPECT_EQ(inProgress(), rows[row].inProgress);
            }
        }
    }

    Image image = imageOf(93);
};

TEST_F(SoftwareDownloadTransition, OfTheTransfer)
{
    const std::vector<unsigned short> clear = {0, 2, 6, 8, 9, 10, 12, 13, 14, 15};
    const std::vector<unsigned short> set = {1, 3, 4, 5, 7, 11};
    check({
        {clear, Event::GoodStart, 1, true, "0"},
        {clear, Event::StartOfSizeZero, 2, false, "1"},
        {clear, Event::StartWithoutRoom, 2, false, "1"},
        {clear, Event::StartOfCommittedImage, 2, false, "1"},
        {set, Event::GoodStart, -1, true, "1"},
        {set, Event::StartOfSizeZero, -1, true, "1"},
        {{1, 3}, Event::Section, 3, true, "none"},
        {{1, 3}, Event::AcknowledgedSection, 3, true, "0"},
        {{1, 3}, Event::WrongAcknowledgedSection, 3, true, "1"},
        {{1}, Event::LastSection, 4, true, "0"},
        {{4, 5, 7, 11}, Event::Section, 2, false, "none"},
        {{4, 5, 7, 11}, Event::AcknowledgedSection, 2, false, "5"},
        {clear, Event::Section, 2, false, "none"},
        {clear, Event::AcknowledgedSection, 2, false, "5"},
        {{1, 3, 4}, Event::TimeOut, -1, false, "none"},
    });
}

TEST_F(SoftwareDownloadTransition, OfTheEndOfTheDownload)
{
    check({
        {{1, 3, 4}, Event::BadEnd, 6, false, "1"},
        {{5, 7}, Event::GoodEnd, -1, true, "6"},
        {{11}, Event::GoodEnd, -1, true, "1"},
        {{8, 9}, Event::GoodEnd, -1, false, "0"},
        {{0, 2, 6, 10, 12, 13, 14, 15}, Event::GoodEnd, -1, false, "1"},
    });
}

struct WriteRow
{
    const char* name;
    const char* failure;  ///< of the C library, or null
    const char* verifyStatus;
    unsigned int status;
    const char* reply;
    int result;
};

class SoftwareDownloadWriteTransition : public SoftwareDownloadTest, public ::testing::WithParamInterface<WriteRow>
{};

TEST_P(SoftwareDownloadWriteTransition, FromAcceptedToTheEndOfTheWrite)
{
    const WriteRow& row = GetParam();
    const Image image = imageOf(93);
    std::vector<unsigned int> during;
    Sandbox::setCommandHandler([&](const std::string& command) {
        if (command == kVerify) {
            during.push_back(status());
            if (row.verifyStatus != nullptr) {
                writeFile(kVerifyStatus, row.verifyStatus);
            }
        }
        return 0;
    });
    ASSERT_EQ(start(93), 0);
    sendImage(image);
    if (row.failure != nullptr) {
        ASSERT_TRUE(Sandbox::fail(row.failure, EIO, 1));
    }
    ASSERT_EQ(end(crcOf(image), 93), 0);
    EXPECT_EQ(replied(), "6");
    SoftwareDownloadState::waitForWriters();
    const std::size_t runs = row.failure != nullptr ? 0 : row.verifyStatus != nullptr ? 1 : 5;
    EXPECT_EQ(during, std::vector<unsigned int>(runs, 7));
    EXPECT_EQ(status(), row.status);
    EXPECT_FALSE(inProgress());
    EXPECT_EQ(poll(), row.result);
    EXPECT_EQ(replied(), row.reply);
}

INSTANTIATE_TEST_SUITE_P(Rows, SoftwareDownloadWriteTransition,
                         ::testing::Values(WriteRow{"VerifiedImage", nullptr, "0\n", 8, "0", 1},
                                           WriteRow{"ImageThatTheScriptRefuses", nullptr, "1\n", 10, "1", -1},
                                           WriteRow{"ScriptWithoutStatus", nullptr, nullptr, 10, "1", -1},
                                           WriteRow{"FileThatCannotBeMade", "open", "0\n", 5, "1", -1},
                                           WriteRow{"FileThatCannotBeWritten", "write", "0\n", 5, "1", -1}),
                         [](const auto& named) { return std::string(named.param.name); });
