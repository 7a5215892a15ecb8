// Get next of tables that the host serves, from rows that a stand-in of the stores holds.

#include "DispatcherFixture.h"
#include "host/TableRows.h"

using namespace omci;

namespace {

constexpr unsigned short kShortRows = 0x1000;
constexpr unsigned short kLongRows = 0x0800;
constexpr std::size_t kLongRow = 60;

/// Attribute 4 a table of 8-octet rows, 5 one of 60-octet rows; class 100, instance 1 has two rows of each.
const unsigned char* rowOf(unsigned short classId, unsigned short instance, unsigned short mask, std::size_t row)
{
    static const std::array<std::array<unsigned char, kLongRow>, 2> rows = [] {
        std::array<std::array<unsigned char, kLongRow>, 2> made{};
        for (std::size_t octet = 0; octet < kLongRow; ++octet) {
            made[0][octet] = static_cast<unsigned char>(octet + 1);
            made[1][octet] = 0xEE;
        }
        return made;
    }();
    const bool isTable = mask == kShortRows || mask == kLongRows;
    return classId == 100 && instance == 1 && isTable && row < rows.size() ? rows[row].data() : nullptr;
}

class StoredTables : public DispatcherTest
{
protected:
    StoredTables()
    {
        me.add(1);
        setTableRowSource(&rowOf);
    }
    ~StoredTables() override { setTableRowSource(nullptr); }

    FakeMe me{100,
              {attribute(0x8000, 2, R), attribute(kShortRows, 8, R | W | N, true),
               attribute(kLongRows, kLongRow, R | N, true)}};
};

class ExtendedStoredTables : public StoredTables
{
protected:
    ExtendedStoredTables() { format = Format::Extended; }
};

}  // namespace

TEST_F(StoredTables, EachSequenceNumberIsARow)
{
    EXPECT_EQ(padded("0010000102030405060708"), ask(MessageType::GetNext, 100, 1, "1000 0000"));
    EXPECT_EQ(padded("001000eeeeeeeeeeeeeeee"), ask(MessageType::GetNext, 100, 1, "1000 0001"));
}

TEST_F(StoredTables, MissingRowIsAParameterError)
{
    EXPECT_EQ(padded("031000"), ask(MessageType::GetNext, 100, 1, "1000 0002"));
    EXPECT_EQ(padded("031000"), ask(MessageType::GetNext, 100, 1, "1000 ffff"));
}

TEST_F(StoredTables, LongRowTakesAsManyNumbersAsItNeedsMessages)
{
    EXPECT_EQ("0008000102", ask(MessageType::GetNext, 100, 1, "0800 0000").substr(0, 10));
    EXPECT_EQ("0008001e1f", ask(MessageType::GetNext, 100, 1, "0800 0001").substr(0, 10));
    EXPECT_EQ(padded("0008003b3c"), ask(MessageType::GetNext, 100, 1, "0800 0002"));
    EXPECT_EQ(padded("000800eeee"), ask(MessageType::GetNext, 100, 1, "0800 0005"));
    EXPECT_EQ(padded("030800"), ask(MessageType::GetNext, 100, 1, "0800 0006"));
}

TEST_F(ExtendedStoredTables, RowIsWholeAndNotFilledUp)
{
    EXPECT_EQ("0010000102030405060708", ask(MessageType::GetNext, 100, 1, "1000 0000"));
    EXPECT_EQ(2 * (3 + kLongRow), ask(MessageType::GetNext, 100, 1, "0800 0001").size());
    EXPECT_EQ("030800", ask(MessageType::GetNext, 100, 1, "0800 0002"));
}

TEST_F(StoredTables, WhatIsNoTableIsNotSupported)
{
    EXPECT_EQ(padded("028000"), ask(MessageType::GetNext, 100, 1, "8000 0000"));
    EXPECT_EQ(padded("021800"), ask(MessageType::GetNext, 100, 1, "1800 0000")) << "one table at a time";
    EXPECT_EQ(padded("020000"), ask(MessageType::GetNext, 100, 1, "0000 0000"));
}

TEST_F(StoredTables, UnknownInstanceIsSaid)
{
    EXPECT_EQ(padded("051000"), ask(MessageType::GetNext, 100, 2, "1000 0000"));
}
