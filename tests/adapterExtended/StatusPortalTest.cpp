// Flexible configuration status portal: the status message, read row by row.
#include <cstring>
#include <numeric>
#include <stdexcept>

#include "GetNextTest.h"
#include "adapterExtended/OmciMeFlexibleConfigurationStatusPortalAdapterExtended.h"

using ::testing::_;

namespace {

constexpr unsigned short kAdministrativeState = 0x1000;
constexpr unsigned short kOperationalState = 0x800;
constexpr unsigned short kConfigurationPortalTable = 0x100;
constexpr unsigned short kStatusMessage = 0x20;
constexpr std::size_t kRow = 29;
constexpr std::size_t kText = 256;

class StatusPortal : public GetNextTest
{
protected:
    static constexpr unsigned short kPortal = 0x0101;

    StatusPortal() : GetNextTest(65420) {}

    void SetUp() override
    {
        makeInstance(kPortal);
        // Zeros inside are part of the text: rows are plain copies.
        std::iota(text.begin(), text.end(), static_cast<unsigned char>(200));
        ON_CALL(hardware, getStatusPortalMessage).WillByDefault([this](auto, auto, unsigned char* record) {
            std::memset(record, 0xEE, 18);
            std::memcpy(record + 18, text.data(), text.size());
            std::memset(record + 18 + kText, 0xDD, 512 - 18 - kText);
            return 0;
        });
    }

    void read()
    {
        ASSERT_EQ(getNumber(m_Class, kPortal, kStatusMessage), kText);
        log.clear();
    }

    const OmciMeFlexibleConfigurationStatusPortalAdapterExtended& portalAdapter() const
    {
        return dynamic_cast<const OmciMeFlexibleConfigurationStatusPortalAdapterExtended&>(me());
    }

    std::vector<unsigned char> text = std::vector<unsigned char>(kText);
};

TEST_F(StatusPortal, TextOf256BytesYieldsNineRowsAndTheLastHas24BytesOfIt)
{
    EXPECT_CALL(hardware, getStatusPortalMessage(OMCI_ACTION_GET, kPortal, _)).Times(1);
    read();
    text.resize(9 * kRow);  // zeros behind the text, none of the record's
    for (unsigned short row = 0; row < 9; ++row) {
        const GetNextReply reply = getNext(kPortal, kStatusMessage, row);
        EXPECT_EQ(reply.result, 0) << row;
        EXPECT_EQ(reply.attributeMask, kStatusMessage) << row;
        const auto from = text.begin() + static_cast<std::ptrdiff_t>(row * kRow);
        EXPECT_EQ(reply.data, std::vector<unsigned char>(from, from + kRow)) << row;
    }
    EXPECT_TRUE(log.has(6, "Received getNext for FCSP statusMessage"));
    EXPECT_TRUE(log.has(6, "Attribute mask(0x20); Sequence number(8)"));
    OmciFrame tenth = requestFrame(omci::MessageType::GetNext, m_Class, kPortal, requestContents(kStatusMessage, 9));
    EXPECT_THROW(me().getNext(&tenth), std::out_of_range);
}

TEST_F(StatusPortal, NoLineShowsTheBuffer)
{
    read();
    getNext(kPortal, kStatusMessage, 0);
    for (const std::string& line : log.texts(6)) {
        EXPECT_NE(line.compare(0, 7, "Buffer("), 0) << line;
    }
}

TEST_F(StatusPortal, StatusTextIsLoggedRowByRow)
{
    std::fill(text.begin(), text.end(), static_cast<unsigned char>('s'));
    ASSERT_EQ(getNumber(m_Class, kPortal, kStatusMessage), kText);
    EXPECT_TRUE(log.has(6, "Got request to getStatusMessage"));
    EXPECT_EQ(log.count(6, "StatusMessage(" + std::string(29, 's') + ")"), 8U);
    EXPECT_EQ(log.count(6, "StatusMessage(" + std::string(24, 's') + ")"), 1U);
}

TEST_F(StatusPortal, StatusReadRestartsTheNumbering)
{
    read();
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 0).result, 0);
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 1).result, 0);
    read();
    EXPECT_EQ(portalAdapter().nextSequenceNumber(), 0);
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 0).result, 0);
}

TEST_F(StatusPortal, ReadForAnotherActionKeepsRowsAndNumbering)
{
    read();
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 0).result, 0);
    EXPECT_CALL(hardware, getStatusPortalMessage(_, _, _)).Times(0);
    EXPECT_EQ(getNumber(m_Class, kPortal, kStatusMessage, OMCI_ACTION_SET), 0U);
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 1).result, 0);
}

TEST_F(StatusPortal, ConfigurationPortalTableReadsAsZeros)
{
    ASSERT_EQ(set(m_Class, kPortal, kConfigurationPortalTable, std::vector<unsigned char>(25, 'c')), 0);
    const GetNextReply reply = getNext(kPortal, kConfigurationPortalTable, 0);
    EXPECT_EQ(reply.result, 0);
    EXPECT_EQ(reply.attributeMask, kConfigurationPortalTable);
    EXPECT_EQ(reply.data, std::vector<unsigned char>(kBaselineRoom));
    EXPECT_EQ(getNext(kPortal, kConfigurationPortalTable, 0).result, 3) << "the sequence holds for it too";
}

TEST_F(StatusPortal, RepeatedRowIsOutOfOrder)
{
    read();
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 0).result, 0);
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 0).result, 3);
    EXPECT_TRUE(log.has(3, "Command sequence number(0) out of order, expected(1)"));
    EXPECT_EQ(portalAdapter().nextSequenceNumber(), 2);
}

TEST_F(StatusPortal, AnotherMaskIsNotSupported)
{
    EXPECT_EQ(getNext(kPortal, 0x8000, 0).result, 2);
    EXPECT_EQ(getNext(kPortal, kStatusMessage | kConfigurationPortalTable, 1).result, 2);
    EXPECT_TRUE(log.has(3, "Attribute mask(0x120) not found or not enabled for GetNext action"));
}

TEST_F(StatusPortal, UnknownInstanceIsAnswered)
{
    read();
    EXPECT_EQ(getNext(kPortal + 1, kStatusMessage, 0).result, 5);
    EXPECT_TRUE(log.has(3, "Instance(258) doesn't exists"));
}

TEST_F(StatusPortal, InstancesShareOneSequenceButNotTheirRows)
{
    constexpr unsigned short other = 0xFFFF;
    makeInstance(other);
    read();
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 0).result, 0);
    EXPECT_EQ(getNext(other, kStatusMessage, 1).result, 3) << "in turn, but this instance has no rows";
}

TEST_F(StatusPortal, MessageOfAMissingInstanceIsAProcessingError)
{
    unsigned char buffer[kRow] = {};
    unsigned short length = kRow;
    EXPECT_EQ(portalAdapter().getNextMessage(kStatusMessage, 0, buffer, &length, 7), 1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
}

TEST_F(StatusPortal, NullFrameIsLoggedAsReceivedAndRefused)
{
    log.clear();
    EXPECT_EQ(me().getNext(nullptr), -1);
    EXPECT_TRUE(log.has(6, "Received getNext for FCSP statusMessage"));
    EXPECT_EQ(log.texts(3), std::vector<std::string>{"Detected NULL pointer"});
}

TEST_F(StatusPortal, OperationalStateOfALockedPortalStays)
{
    EXPECT_EQ(getNumber(m_Class, kPortal, kAdministrativeState), 1U) << "locked by default";
    EXPECT_EQ(set(m_Class, kPortal, kOperationalState, 1), 0);
    EXPECT_EQ(getNumber(m_Class, kPortal, kOperationalState), 0U);
    EXPECT_TRUE(log.has(6, "Operational state(1)"));
}

TEST_F(StatusPortal, OperationalStateOfAnUnlockedPortalIsStored)
{
    EXPECT_EQ(set(m_Class, kPortal, kAdministrativeState, 0), 0);
    EXPECT_EQ(set(m_Class, kPortal, kOperationalState, 1), 0);
    EXPECT_EQ(getNumber(m_Class, kPortal, kOperationalState), 1U);
    EXPECT_EQ(set(m_Class, kPortal, kAdministrativeState, 2), 0);
    EXPECT_EQ(set(m_Class, kPortal, kOperationalState, 0), 0);
    EXPECT_EQ(getNumber(m_Class, kPortal, kOperationalState), 1U) << "any state but unlocked locks";
}

TEST_F(StatusPortal, MissingHardwareReadsAsATextOfZeros)
{
    removeHardware();
    log.clear();
    EXPECT_EQ(getNumber(m_Class, kPortal, kStatusMessage), kText);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(getNext(kPortal, kStatusMessage, 0).data, std::vector<unsigned char>(kRow));
}

TEST_F(StatusPortal, NothingIsAppliedAfterASet)
{
    EXPECT_EQ(me().applyConfigurationToHardwareForSet(kPortal), -1);
    ASSERT_EQ(create(65421, 1), 0);
    EXPECT_EQ(adapter(65421).applyConfigurationToHardwareForSet(1), -1);
}

}  // namespace
