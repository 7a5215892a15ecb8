// Dot1ag CFM stack: get next on the MP status table.
#include "GetNextTest.h"
#include "OmciMeDot1agCFMStackIf.h"
#include "adapterExtended/OmciMeDot1agCFMStackAdapterExtended.h"
#include "impl/MpStatusTable.h"

namespace {

constexpr unsigned short kBridgeServiceProfile = 45;
constexpr unsigned short kMpStatusTable = 0x4000;
constexpr std::size_t kRow = 18;

class CfmStack : public GetNextTest
{
protected:
    static constexpr unsigned short kBridge = 0x0102;

    CfmStack() : GetNextTest(305) {}

    /// The stack comes with its bridge.
    void SetUp() override
    {
        ASSERT_EQ(create(kBridgeServiceProfile, kBridge), 0);
        log.clear();
    }

    const OmciMeDot1agCFMStackAdapterExtended& stackAdapter() const
    {
        return dynamic_cast<const OmciMeDot1agCFMStackAdapterExtended&>(me());
    }
};

TEST_F(CfmStack, TableIsAnnouncedEmpty)
{
    EXPECT_EQ(getNumber(m_Class, kBridge, kMpStatusTable), 0U);
    EXPECT_TRUE(log.has(6, "CfmStack Inst 0102 MpStatusTableLen= 0"));
    EXPECT_EQ(me().applyConfigurationToHardwareForSet(kBridge), 0);
}

TEST_F(CfmStack, SequenceNumberZeroReturnsAZeroRow)
{
    const GetNextReply reply = getNext(kBridge, kMpStatusTable, 0);
    EXPECT_EQ(reply.result, 0);
    EXPECT_EQ(reply.attributeMask, kMpStatusTable);
    EXPECT_EQ(reply.data, std::vector<unsigned char>(kBaselineRoom));
    EXPECT_TRUE(log.has(6, "MpStatusTableGetNext Inst 0102 Sequence number(0)"));
    EXPECT_TRUE(log.has(6, "CfmStack Inst 0102 MpStatusTable SequNo 0"));
    EXPECT_TRUE(log.has(6, "MpStatusTableGetNext entry delivered"));
    EXPECT_TRUE(log.has(6, "CfmStackAdapterExt transfer buffer (Len= 32): "
                           "0000  0  0 0000 0000 0000 0000  0  0  0  0  0  0"));
}

TEST_F(CfmStack, RowCanBeAskedForAgain)
{
    EXPECT_EQ(getNext(kBridge, kMpStatusTable, 0).result, 0);
    EXPECT_EQ(getNext(kBridge, kMpStatusTable, 0).result, 0);
}

TEST_F(CfmStack, ExtendedRequestOfFourBytesGetsTheWholeRow)
{
    const GetNextReply reply = getNext(kBridge, kMpStatusTable, 0, omci::Format::Extended);
    EXPECT_EQ(reply.result, 0);
    EXPECT_EQ(reply.data, std::vector<unsigned char>(kRow));
}

TEST_F(CfmStack, SequenceNumberOneIsOutOfOrder)
{
    EXPECT_EQ(getNext(kBridge, kMpStatusTable, 1).result, 3);
    EXPECT_EQ(log.texts(3), (std::vector<std::string>{"Command sequence number(1) out of order, expected(0)",
                                                      "Failed to retrieve the next(1) message"}));
}

TEST_F(CfmStack, AnotherAttributeIsNotSupportedEvenOfAnUnknownInstance)
{
    EXPECT_EQ(getNext(kBridge, 0x2000, 0).result, 2);
    EXPECT_EQ(getNext(kBridge + 1, 0x2000, 0).result, 2);
    EXPECT_EQ(getNext(kBridge, {}, omci::Format::Extended).result, 2);
    EXPECT_EQ(log.texts(3), std::vector<std::string>(3, "Unsupported CfmStack GetNext on Attr %04"));
}

TEST_F(CfmStack, UnknownInstanceIsAnswered)
{
    EXPECT_EQ(getNext(kBridge + 1, kMpStatusTable, 0).result, 5);
    EXPECT_TRUE(log.has(3, "Instance(259) doesn't exists"));
}

TEST_F(CfmStack, StackOfADeletedBridgeIsUnknown)
{
    ASSERT_EQ(adapter(kBridgeServiceProfile).deleteManagedEntityInstance(kBridge, true), 0);
    EXPECT_EQ(getNext(kBridge, kMpStatusTable, 0).result, 5);
}

TEST_F(CfmStack, NullFrameIsRefused)
{
    EXPECT_EQ(me().getNext(nullptr), -1);
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"Detected NULL pointer"});
}

TEST_F(CfmStack, MessageOfAMissingInstanceIsAProcessingError)
{
    unsigned char buffer[kRow] = {};
    unsigned short length = kRow;
    EXPECT_EQ(stackAdapter().getNextMpStatusTableMessage(kBridge + 1, 0, buffer, &length), 1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
}

TEST_F(CfmStack, EntriesUpToFiveAreInRangeAndLeaveTheBuffer)
{
    auto* table = dynamic_cast<nrvk::MpStatusTable*>(OmciMeDot1agCFMStackIf::getManagedEntityInstance(kBridge));
    ASSERT_NE(table, nullptr);
    std::vector<unsigned char> buffer(kRow, 0xAA);
    EXPECT_EQ(table->getNextMpStatusTableEntry(5, buffer.data()), 0);
    EXPECT_TRUE(log.texts(3).empty());
    EXPECT_EQ(table->getNextMpStatusTableEntry(6, buffer.data()), -1);
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"CfmStack Requested SequenceNo out of range, abort!"});
    EXPECT_EQ(buffer, std::vector<unsigned char>(kRow, 0xAA));
}

}  // namespace
