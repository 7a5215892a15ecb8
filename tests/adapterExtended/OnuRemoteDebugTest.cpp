// ONU remote debug: the reply to a command, read row by row.
#include <numeric>
#include <stdexcept>

#include "GetNextTest.h"
#include "adapterExtended/OmciMeOnuRemoteDebugAdapterExtended.h"

using ::testing::Return;

namespace {

constexpr unsigned short kReplyTable = 0x2000;
constexpr unsigned short kCommand = 0x4000;
constexpr std::size_t kRow = 29;

/// Bytes 1, 2, 3 ... without a zero.
std::vector<unsigned char> textOf(std::size_t length)
{
    std::vector<unsigned char> text(length);
    std::iota(text.begin(), text.end(), static_cast<unsigned char>(1));
    return text;
}

std::vector<unsigned char> rowOf(const std::vector<unsigned char>& text, std::size_t row)
{
    std::vector<unsigned char> bytes(text.begin() + static_cast<std::ptrdiff_t>(row * kRow),
                                     text.begin() +
                                         static_cast<std::ptrdiff_t>(std::min((row + 1) * kRow, text.size())));
    bytes.resize(kRow);
    return bytes;
}

class OnuRemoteDebugGetNext : public GetNextTest
{
protected:
    OnuRemoteDebugGetNext() : GetNextTest(158) {}

    void SetUp() override { makeInstance(0); }

    /// A get of the table, as the OLT starts a read.
    void read(const std::vector<unsigned char>& reply)
    {
        EXPECT_CALL(hardware, getRemoteDebugReply()).WillOnce(Return(reply));
        ASSERT_EQ(getNumber(m_Class, 0, kReplyTable), reply.size());
        log.clear();
    }

    const OmciMeOnuRemoteDebugAdapterExtended& debugAdapter() const
    {
        return dynamic_cast<const OmciMeOnuRemoteDebugAdapterExtended&>(me());
    }
};

TEST_F(OnuRemoteDebugGetNext, RowsComeInOrderWithTheAttributeMask)
{
    const std::vector<unsigned char> text = textOf(3 * kRow);
    read(text);
    for (unsigned short row = 0; row < 3; ++row) {
        const GetNextReply reply = getNext(0, kReplyTable, row);
        EXPECT_EQ(reply.result, 0) << row;
        EXPECT_EQ(reply.attributeMask, kReplyTable) << row;
        EXPECT_EQ(reply.data, rowOf(text, row)) << row;
    }
    EXPECT_TRUE(log.has(6, "Attribute mask(0x2000); Sequence number(2)"));
    EXPECT_TRUE(log.has(6, "Buffer(29; 0102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d)"));
}

TEST_F(OnuRemoteDebugGetNext, ExtendedRequestOfFourBytesGetsTheWholeRow)
{
    const std::vector<unsigned char> text = textOf(kRow);
    read(text);
    const GetNextReply reply = getNext(0, kReplyTable, 0, omci::Format::Extended);
    EXPECT_EQ(reply.result, 0);
    EXPECT_EQ(reply.data, text);
}

TEST_F(OnuRemoteDebugGetNext, ShortLastRowIsFilledWithZeros)
{
    const std::vector<unsigned char> text = textOf(kRow + 1);
    read(text);
    EXPECT_EQ(getNext(0, kReplyTable, 0).data, rowOf(text, 0));
    EXPECT_EQ(getNext(0, kReplyTable, 1).data, rowOf(text, 1));
}

TEST_F(OnuRemoteDebugGetNext, ZeroByteEndsTheRowItStandsIn)
{
    std::vector<unsigned char> text = textOf(2 * kRow);
    text[3] = 0;
    read(text);
    EXPECT_EQ(getNext(0, kReplyTable, 0).data, rowOf({1, 2, 3}, 0));
    EXPECT_EQ(getNext(0, kReplyTable, 1).data, rowOf(text, 1));
}

TEST_F(OnuRemoteDebugGetNext, FirstRowOfAnEmptyTableIsOutOfRange)
{
    OmciFrame frame = requestFrame(omci::MessageType::GetNext, m_Class, 0, requestContents(kReplyTable, 0));
    EXPECT_THROW(me().getNext(&frame), std::out_of_range);
    EXPECT_FALSE(frame.hasReply());
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 0) << "the exception came before the step";
}

TEST_F(OnuRemoteDebugGetNext, RowAfterTheLastIsOutOfRange)
{
    read(textOf(kRow));
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 0);
    OmciFrame frame = requestFrame(omci::MessageType::GetNext, m_Class, 0, requestContents(kReplyTable, 1));
    EXPECT_THROW(me().getNext(&frame), std::out_of_range);
}

TEST_F(OnuRemoteDebugGetNext, RowBeyondTheLastButOneIsAParameterError)
{
    read(textOf(kRow));
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 0);
    EXPECT_EQ(getNext(0, kReplyTable, 7).result, 3) << "out of order, and steps the sequence to 2";
    log.clear();
    EXPECT_EQ(getNext(0, kReplyTable, 2).result, 3) << "in order, but only one row is there";
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"Failed to retrieve the next(2) message"});
}

TEST_F(OnuRemoteDebugGetNext, RepeatedRowIsOutOfOrderAndMovesTheSequenceOn)
{
    const std::vector<unsigned char> text = textOf(3 * kRow);
    read(text);
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 0);
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 3);
    EXPECT_TRUE(log.has(3, "Command sequence number(0) out of order, expected(1)"));
    EXPECT_TRUE(log.has(3, "Failed to retrieve the next(0) message"));
    EXPECT_EQ(getNext(0, kReplyTable, 1).result, 3) << "the repeat took row 1's turn";
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 3);
}

TEST_F(OnuRemoteDebugGetNext, SkippedRowIsOutOfOrder)
{
    read(textOf(3 * kRow));
    EXPECT_EQ(getNext(0, kReplyTable, 1).result, 3);
    EXPECT_TRUE(log.has(3, "Command sequence number(1) out of order, expected(0)"));
}

TEST_F(OnuRemoteDebugGetNext, SequenceWrapsAround)
{
    read(textOf(kRow));
    for (unsigned int step = 0; step < 0x10000; ++step) {
        debugAdapter().advance();
    }
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 0);
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 0);
}

TEST_F(OnuRemoteDebugGetNext, AnotherMaskIsNotSupportedAndMovesTheSequence)
{
    read(textOf(kRow));
    for (const unsigned short mask : {0x8000, 0x4000, 0x6000, 0x1000, 0x0000}) {
        log.clear();
        const GetNextReply reply = getNext(0, mask, 0);
        EXPECT_EQ(reply.result, 2) << mask;
        EXPECT_EQ(reply.attributeMask, mask);
        EXPECT_EQ(log.texts(3).size(), 2U);
    }
    EXPECT_TRUE(log.has(3, "Attribute mask(0x0) not found or not enabled for GetNext action"));
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 5);
}

TEST_F(OnuRemoteDebugGetNext, NewGetOfTheTableRestartsTheNumbering)
{
    const std::vector<unsigned char> first = textOf(2 * kRow);
    read(first);
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 0);
    const std::vector<unsigned char> second(kRow, 'x');
    read(second);
    const GetNextReply reply = getNext(0, kReplyTable, 0);
    EXPECT_EQ(reply.result, 0);
    EXPECT_EQ(reply.data, second) << "the rows of the first read are gone";
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 1);
}

TEST_F(OnuRemoteDebugGetNext, GetForAnotherActionKeepsRowsAndNumbering)
{
    const std::vector<unsigned char> text = textOf(2 * kRow);
    read(text);
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 0);
    EXPECT_CALL(hardware, getRemoteDebugReply()).Times(0);
    EXPECT_EQ(getNumber(m_Class, 0, kReplyTable, OMCI_ACTION_GET_CURRENT_DATA), 0U);
    EXPECT_EQ(getNext(0, kReplyTable, 1).data, rowOf(text, 1));
}

TEST_F(OnuRemoteDebugGetNext, UnknownInstanceIsAnsweredAndMovesTheSequence)
{
    read(textOf(kRow));
    const GetNextReply reply = getNext(1, kReplyTable, 0);
    EXPECT_EQ(reply.result, 5);
    EXPECT_EQ(reply.attributeMask, kReplyTable);
    EXPECT_TRUE(log.has(3, "Instance(1) doesn't exists"));
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 1);
}

TEST_F(OnuRemoteDebugGetNext, RowsAreThoseOfInstanceZero)
{
    makeInstance(5);
    const std::vector<unsigned char> text = textOf(kRow);
    read(text);
    EXPECT_EQ(getNext(5, kReplyTable, 0).data, text);
}

TEST_F(OnuRemoteDebugGetNext, WithoutInstanceZeroIsAProcessingError)
{
    makeInstance(5);
    ASSERT_EQ(OmciManagedEntityRegistrar::getInstance()->deleteManagedEntityInstance(m_Class, 0), 0);
    EXPECT_EQ(getNext(5, kReplyTable, 0).result, 1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
    EXPECT_TRUE(log.has(3, "Failed to retrieve the next(0) message"));
}

TEST_F(OnuRemoteDebugGetNext, NullFrameIsRefusedAndStepsNothing)
{
    log.clear();
    EXPECT_EQ(me().getNext(nullptr), -1);
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"Detected NULL pointer"});
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 0);
}

TEST_F(OnuRemoteDebugGetNext, RequestWithoutContentsAsksForNoAttribute)
{
    EXPECT_EQ(getNext(0, {}, omci::Format::Extended).result, 2);
    EXPECT_EQ(getNext(0, {0x20}, omci::Format::Extended).result, 2);
}

TEST_F(OnuRemoteDebugGetNext, MessageNeedsBufferAndLength)
{
    unsigned char buffer[kRow] = {};
    unsigned short length = 0;
    EXPECT_EQ(debugAdapter().getNextMessage(kReplyTable, 0, nullptr, &length), 1);
    EXPECT_EQ(debugAdapter().getNextMessage(kReplyTable, 0, buffer, nullptr), 1);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
}

TEST_F(OnuRemoteDebugGetNext, CommandIsPassedOnAndNotStored)
{
    std::vector<unsigned char> command(25, 'v');
    EXPECT_CALL(hardware, sendRemoteDebugCommand).WillOnce([&](const unsigned char* sent) {
        EXPECT_EQ(std::vector<unsigned char>(sent, sent + 25), command);
        return -1;
    });
    EXPECT_EQ(set(m_Class, 0, kCommand, command), 0) << "the hardware's result is ignored";
    EXPECT_TRUE(log.has(6, "Command(" + std::string(25, 'v') + ")")) << "bounded by the attribute";
    EXPECT_EQ(get(m_Class, 0, kCommand), std::vector<unsigned char>(25));
    EXPECT_EQ(me().applyConfigurationToHardwareForSet(0), -1);
}

TEST_F(OnuRemoteDebugGetNext, MissingHardwareReadsAsAnEmptyReply)
{
    read(textOf(kRow));
    EXPECT_EQ(getNext(0, kReplyTable, 0).result, 0);
    removeHardware();
    log.clear();
    EXPECT_EQ(set(m_Class, 0, kCommand, std::vector<unsigned char>(25)), 0);
    EXPECT_EQ(getNumber(m_Class, 0, kReplyTable), 0U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
    EXPECT_TRUE(log.has(6, "Action(9)"));
    EXPECT_EQ(debugAdapter().nextSequenceNumber(), 0);
}

}  // namespace
