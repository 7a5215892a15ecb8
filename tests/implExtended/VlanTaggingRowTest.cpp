#include "implExtended/VlanTaggingRow.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "VlanRows.h"

namespace {

using vlanrows::encode;
using vlanrows::Row;

RecVlanTagFilData decoded(const Row& row)
{
    return nrvk::decodeVlanTaggingRow(row.data());
}

TEST(VlanTaggingRow, EachFieldComesFromItsOwnBits)
{
    const Row row = {0x3A, 0xBC, 0xDE, 0xF1, 0x51, 0x23, 0x45, 0x67, 0x9F, 0x0B, 0x12, 0x34, 0xAB, 0xC7, 0x89, 0xAD};
    const RecVlanTagFilData rule = decoded(row);
    EXPECT_EQ(rule.FOP, 0x3);
    EXPECT_EQ(rule.FOV, 0x1579);
    EXPECT_EQ(rule.FOT, 0x5);
    EXPECT_EQ(rule.pad1, 0xEF1);
    EXPECT_EQ(rule.FIP, 0x5);
    EXPECT_EQ(rule.FIV, 0x0246);
    EXPECT_EQ(rule.FIT, 0x4);
    EXPECT_EQ(rule.pad2, 0x56);
    EXPECT_EQ(rule.FET, 0x7);
    EXPECT_EQ(rule.TTR, 0x2);
    EXPECT_EQ(rule.pad3, 0x1F0);
    EXPECT_EQ(rule.TOP, 0xB);
    EXPECT_EQ(rule.TOV, 0x0246);
    EXPECT_EQ(rule.TOT, 0x4);
    EXPECT_EQ(rule.pad4, 0xABC);
    EXPECT_EQ(rule.TIP, 0x7);
    EXPECT_EQ(rule.TIV, 0x1135);
    EXPECT_EQ(rule.TIT, 0x5);
}

TEST(VlanTaggingRow, EveryBitOfTheRowLandsInExactlyOneField)
{
    for (unsigned int bit = 0; bit < 128; ++bit) {
        Row row{};
        row[bit / 8] = static_cast<unsigned char>(0x80U >> bit % 8);
        EXPECT_EQ(encode(decoded(row)), row) << "bit " << bit;
        for (unsigned char& byte : row) {
            byte = static_cast<unsigned char>(~byte);
        }
        EXPECT_EQ(encode(decoded(row)), row) << "all but bit " << bit;
    }
}

TEST(VlanTaggingRow, TreatmentOfAllOnesIsTheUnsetFrameWhateverTheFilter)
{
    Row row = encode(vlanrows::translation(100, 200));
    EXPECT_FALSE(nrvk::isUnsetFrame(decoded(row)));
    std::fill(row.begin() + 8, row.end(), static_cast<unsigned char>(0xFF));
    EXPECT_TRUE(nrvk::isUnsetFrame(decoded(row)));
    row.fill(0xFF);
    EXPECT_TRUE(nrvk::isUnsetFrame(decoded(row)));
}

TEST(VlanTaggingRow, OneTreatmentBitMissingIsNoUnsetFrame)
{
    for (unsigned int bit = 64; bit < 128; ++bit) {
        Row row;
        row.fill(0xFF);
        row[bit / 8] = static_cast<unsigned char>(row[bit / 8] & ~(0x80U >> bit % 8));
        EXPECT_FALSE(nrvk::isUnsetFrame(decoded(row))) << "bit " << bit;
    }
}

TEST(VlanTaggingRow, SevenFilterFieldsDecideWhetherFiltersAreTheSame)
{
    const auto isFilterBit = [](unsigned int bit) {
        const bool isPad1 = bit >= 20 && bit < 32;
        const bool isPad2 = bit >= 52 && bit < 60;
        return bit < 64 && !isPad1 && !isPad2;
    };
    const Row row = encode(vlanrows::translation(100, 200));
    for (unsigned int bit = 0; bit < 128; ++bit) {
        Row other = row;
        other[bit / 8] = static_cast<unsigned char>(other[bit / 8] ^ 0x80U >> bit % 8);
        EXPECT_EQ(nrvk::hasSameFilter(decoded(row), decoded(other)), !isFilterBit(bit)) << "bit " << bit;
    }
}

}  // namespace
