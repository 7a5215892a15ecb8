#include "model/VlanRow.h"

#include <gtest/gtest.h>

#include "model/Catalogue.h"
#include "model/Errors.h"
#include "model/Hex.h"
#include "model/Value.h"

namespace olt {

namespace {

std::string octetsOf(const char* fields)
{
    return toHex(parseVlanRow(fields).toOctets());
}

std::string sentence(const char* fields)
{
    return vlanRowText(parseVlanRow(fields));
}

std::string complaint(const char* fields)
{
    try {
        static_cast<void>(parseVlanRow(fields));
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(VlanRow, FieldsLieWhereG988HasThem)
{
    // Each field alone at its highest value, the row written by hand.
    const std::array<const char*, kVlanFields> expected{
        "f0000000000000000000000000000000", "0fff8000000000000000000000000000", "00007000000000000000000000000000",
        "00000000f00000000000000000000000", "000000000fff80000000000000000000", "00000000000070000000000000000000",
        "000000000000000f0000000000000000", "0000000000000000c000000000000000", "0000000000000000000f000000000000",
        "00000000000000000000fff800000000", "00000000000000000000000700000000", "000000000000000000000000000f0000",
        "0000000000000000000000000000fff8", "00000000000000000000000000000007"};
    for (std::size_t i = 0; i < kVlanFields; ++i) {
        const auto row = VlanRow::fromOctets(*fromHex(expected[i]));
        for (std::size_t other = 0; other < kVlanFields; ++other)
            EXPECT_EQ(row.values[other] != 0, other == i) << vlanFieldName(static_cast<VlanField>(i));
        EXPECT_EQ(toHex(row.toOctets()), expected[i]);
    }
}

TEST(VlanRow, TranslationOfASingleTag)
{
    EXPECT_EQ(octetsOf("filter-inner-vid=100 treat-inner-vid=200"), "f80000008032000040"
                                                                    "0f000000080644");
    EXPECT_EQ(sentence("filter-inner-vid=100 treat-inner-vid=200"),
              "single-tagged, VID 100, any priority: remove 1 tag, add VID 200 priority copied from inner");
}

TEST(VlanRow, SentencesForEachKindOfFrame)
{
    EXPECT_EQ(sentence("filter=untagged treat-inner-vid=10"), "untagged: add VID 10 priority 0");
    EXPECT_EQ(sentence("filter=untagged filter-ethertype=pppoe treat-inner-vid=10 treat-inner-priority=dscp"),
              "untagged, PPPoE: add VID 10 priority from DSCP");
    EXPECT_EQ(sentence("filter=single-tagged filter-inner-priority=3 treat=forward"),
              "single-tagged, any VID, priority 3: forward unchanged");
    EXPECT_EQ(sentence("filter-inner-priority=otherwise treat=discard"),
              "single-tagged, no other rule applies: discard");
    EXPECT_EQ(sentence("filter-outer-priority=otherwise treat=discard"),
              "double-tagged, no other rule applies: discard");
    EXPECT_EQ(sentence("filter-outer-vid=5 filter-inner-vid=6 filter-inner-tpid=8100 remove-tags=1"),
              "double-tagged, outer VID 5, any outer priority, inner VID 6, any inner priority, TPID 0x8100: remove 1 "
              "tag");
}

TEST(VlanRow, SentencesForEachTreatment)
{
    EXPECT_EQ(sentence("filter=single-tagged remove-tags=0 treat-inner-vid=7 treat-inner-priority=copy-inner"),
              "single-tagged, any VID, any priority: add VID 7 priority copied from inner");
    EXPECT_EQ(sentence("filter=double-tagged treat-outer-vid=9 treat-inner-priority=copy-inner"),
              "double-tagged, outer any VID, any outer priority, inner any VID, any inner priority: remove 2 tags, add "
              "inner VID copied from inner priority copied from inner, add outer VID 9 priority copied from outer");
    EXPECT_EQ(sentence("filter=single-tagged treat-inner-vid=7 treat-inner-tpid=output-de1"),
              "single-tagged, any VID, any priority: remove 1 tag, add VID 7 priority copied from inner (output TPID, "
              "DE 1)");
    EXPECT_EQ(sentence("filter-inner-vid=100 treat=unset"),
              "take away the rule for: single-tagged, VID 100, any priority");
}

TEST(VlanRow, UnsetRowIsAllOnesBehindTheFilter)
{
    EXPECT_EQ(octetsOf("filter-inner-vid=100 treat=unset"), "f800000080320000ffffffffffffffff");
    EXPECT_TRUE(VlanRow::fromOctets(*fromHex("f800000080320000ffffffffffffffff")).unset);
    EXPECT_FALSE(VlanRow::fromOctets(*fromHex("f800000080320000fffffffffffffffe")).unset);
}

TEST(VlanRow, WhatMakesNoRowIsRefusedWithTheReason)
{
    EXPECT_EQ(complaint("treat-inner-vid=200"),
              "the VLAN row doesn't say which frames: filter=untagged, filter-inner-vid=100 ...");
    EXPECT_NE(complaint("filter-inner-vid=100").find("doesn't say what to do"), std::string::npos);
    EXPECT_EQ(complaint("filter-iner-vid=1 treat=forward"),
              "a VLAN row has no field \"filter-iner-vid\"; did you mean filter-inner-vid, filter-outer-vid or "
              "filter-inner-tpid?");
    EXPECT_EQ(complaint("filter-inner-vid=4097 treat=forward"), "filter-inner-vid=4097: is 0 to 4096 or any");
    EXPECT_EQ(complaint("filter-inner-priority=high treat=forward"),
              "filter-inner-priority=high: is 0 to 15, any, otherwise or none");
    EXPECT_EQ(complaint("filter-inner-vid=1 filter-inner-vid=2 treat=forward"), "filter-inner-vid is given twice");
    EXPECT_EQ(complaint("filter-inner-vid=1 treat=drop"), "treat=drop: is one of unset, discard and forward");
    EXPECT_EQ(complaint("filter=untagged filter-inner-vid=1 treat=forward"),
              "filter=untagged: the other filter fields are for single-tagged frames");
    EXPECT_EQ(complaint("filter=untagged treat-inner-priority=3"),
              "treat-inner-vid is missing; an untagged frame has no VID to copy");
    EXPECT_EQ(complaint("filter=untagged remove-tags=1"), "remove-tags=1: the filter is for frames of 0 tags");
    EXPECT_EQ(complaint("filter=untagged treat=unset remove-tags=1"),
              "treat=unset takes a rule away; remove-tags and treat-... don't go with it");
    EXPECT_EQ(complaint("filter"), "\"filter\" isn't FIELD=VALUE of a VLAN row");
}

TEST(VlanRow, EveryRowOfDigitsHasASentence)
{
    // Reserved codes are named by number, never dropped and never out of range.
    for (unsigned code = 0; code < 256; ++code)
        EXPECT_FALSE(vlanRowText(VlanRow::fromOctets(Bytes(kVlanRowSize, static_cast<std::uint8_t>(code)))).empty());
}

TEST(VlanRow, AttributeTakesFieldsAndDigits)
{
    const auto& rows = Catalogue::builtIn().lookUp("171").attribute("ReceivedFrameVlanTaggingOperationTable");
    const Bytes octets = parseValue(rows, "filter-inner-vid=100,treat-inner-vid=200");
    EXPECT_EQ(octets, parseValue(rows, "0xf800000080320000400f000000080644"));
    EXPECT_EQ(formatValue(rows, octets),
              "single-tagged, VID 100, any priority: remove 1 tag, add VID 200 priority copied from inner");
    EXPECT_EQ(formatValue(rows, Bytes(kVlanRowSize)), "all zero (16 octets)");
}

TEST(VlanFilterList, TagsInWordsAndBack)
{
    const auto& list = Catalogue::builtIn().lookUp("84").attribute("VlanFilterList");
    const Bytes octets = parseValue(list, "100,200:3");
    EXPECT_EQ(toHex(octets), "006460c8" + std::string(40, '0'));
    EXPECT_EQ(formatValue(list, octets), "VID 100, VID 200 priority 3");
    EXPECT_THROW(static_cast<void>(parseValue(list, "5000")), UsageError);
    EXPECT_THROW(static_cast<void>(parseValue(list, "1:8")), UsageError);
    EXPECT_THROW(static_cast<void>(parseValue(list, "1,2,3,4,5,6,7,8,9,10,11,12,13")), UsageError);
}

}  // namespace

}  // namespace olt
