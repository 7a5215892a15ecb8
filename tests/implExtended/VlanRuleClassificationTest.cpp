#include "implExtended/VlanRuleClassification.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "VlanRows.h"

namespace {

enum class Tag
{
    added,
    notAdded,
    any,
};

struct ActionRow
{
    unsigned int frameTags;
    std::vector<unsigned int> tagsToRemove;
    Tag outer;
    Tag inner;
    unsigned short action;
};

/// Read from the top; the first row that fits holds.
const ActionRow kActionRows[] = {
    {0, {1}, Tag::added, Tag::added, 1},     {0, {1}, Tag::any, Tag::any, 0},
    {0, {2}, Tag::any, Tag::any, 0},         {0, {0, 3}, Tag::notAdded, Tag::added, 1},
    {0, {0, 3}, Tag::added, Tag::added, 4},  {0, {0, 3}, Tag::any, Tag::notAdded, 0},
    {1, {1}, Tag::added, Tag::added, 1},     {1, {1}, Tag::notAdded, Tag::added, 3},
    {1, {1}, Tag::any, Tag::notAdded, 2},    {1, {2}, Tag::added, Tag::added, 3},
    {1, {2}, Tag::any, Tag::any, 2},         {1, {0, 3}, Tag::any, Tag::added, 1},
    {1, {0, 3}, Tag::any, Tag::notAdded, 0}, {2, {1}, Tag::any, Tag::added, 6},
    {2, {1}, Tag::any, Tag::notAdded, 2},    {2, {2}, Tag::added, Tag::added, 6},
    {2, {2}, Tag::notAdded, Tag::added, 2},  {2, {2}, Tag::any, Tag::notAdded, 5},
    {2, {0, 3}, Tag::any, Tag::any, 0},
};
constexpr std::size_t kActionRowCount = sizeof(kActionRows) / sizeof(kActionRows[0]);

bool fits(Tag tag, bool added)
{
    return tag == Tag::any || (tag == Tag::added) == added;
}

std::size_t rowFor(unsigned int frameTags, unsigned int tagsToRemove, bool outer, bool inner)
{
    for (std::size_t i = 0; i < kActionRowCount; ++i) {
        const ActionRow& row = kActionRows[i];
        bool removes = false;
        for (const unsigned int count : row.tagsToRemove) {
            removes = removes || count == tagsToRemove;
        }
        if (row.frameTags == frameTags && removes && fits(row.outer, outer) && fits(row.inner, inner)) {
            return i;
        }
    }
    return kActionRowCount;
}

TEST(VlanRuleClassification, TagActionFollowsTheTableForEveryInput)
{
    std::vector<bool> used(kActionRowCount, false);
    for (unsigned int input = 0; input < 3 * 4 * 4; ++input) {
        const unsigned int frameTags = input / 16;
        const unsigned int tagsToRemove = input / 4 % 4;
        const bool outer = (input & 2U) != 0;
        const bool inner = (input & 1U) != 0;
        const std::size_t row = rowFor(frameTags, tagsToRemove, outer, inner);
        ASSERT_LT(row, kActionRowCount) << "no row for input " << input;
        used[row] = true;
        EXPECT_EQ(nrvk::vlanTagAction(frameTags, tagsToRemove, outer, inner), kActionRows[row].action)
            << "frame tags " << frameTags << ", remove " << tagsToRemove << ", outer " << outer << ", inner " << inner;
    }
    EXPECT_EQ(used, std::vector<bool>(19, true));
}

TEST(VlanRuleClassification, PrioritiesOfTheFilterGiveTheFrameTagCount)
{
    for (unsigned int outer = 0; outer < 16; ++outer) {
        for (unsigned int inner = 0; inner < 16; ++inner) {
            RecVlanTagFilData rule{};
            rule.FOP = static_cast<unsigned char>(outer);
            rule.FIP = static_cast<unsigned char>(inner);
            const unsigned int expected = inner == 15 ? 0 : outer == 15 ? 1 : 2;
            EXPECT_EQ(nrvk::vlanFrameTagCount(rule), expected) << outer << ' ' << inner;
        }
    }
}

using Field = void (*)(RecVlanTagFilData& rule, unsigned short value);

struct FlagCase
{
    unsigned int flag;
    const char* field;
    Field set;
    unsigned short valueWith;
    unsigned short valueWithout;
};

/// A field of the record by name, as a setter.
#define FIELD(name)                                                                                                    \
#name, [](RecVlanTagFilData & rule, unsigned short value) { rule.name = static_cast<decltype(rule.name)>(value); }

/// No flag holds for it.
RecVlanTagFilData bareRule()
{
    RecVlanTagFilData rule{};
    rule.FOP = 15;
    rule.FOV = 0x1FFF;
    rule.FOT = 1;
    rule.FIP = 15;
    rule.FIV = 0x1FFF;
    rule.FIT = 1;
    rule.TOP = 15;
    rule.TOV = 0x1FFF;
    rule.TOT = 5;
    rule.TIP = 15;
    rule.TIV = 0x1FFF;
    rule.TIT = 5;
    return rule;
}

RecVlanTagFilData filteringRule()
{
    RecVlanTagFilData rule = bareRule();
    rule.FOP = 0;
    rule.FIP = 0;
    return rule;
}

TEST(VlanRuleFlags, RuleWithoutAnyConditionHasNoFlag)
{
    EXPECT_EQ(nrvk::vlanRuleFlags(bareRule()), 0U);
}

TEST(VlanRuleFlags, EachFlagTurnsAtItsEdge)
{
    const FlagCase cases[] = {
        {0x1, FIELD(FOP), 14, 15},
        {0x1, FIELD(FOP), 0, 15},
        {0x2, FIELD(FOV), 0xFFE, 0xFFF},
        {0x2, FIELD(FOV), 0, 0x1000},
        {0x4, FIELD(FIP), 14, 15},
        {0x4, FIELD(FIP), 0, 15},
        {0x8, FIELD(FIV), 0xFFE, 0xFFF},
        {0x8, FIELD(FIV), 0, 0x1000},
        {0x10, FIELD(FOT), 0, 1},
        {0x10, FIELD(FOT), 0, 7},
        {0x20, FIELD(FIT), 0, 1},
        {0x20, FIELD(FIT), 0, 7},
        {0x40, FIELD(FET), 1, 0},
        {0x40, FIELD(FET), 15, 0},
        {0x80, FIELD(TOP), 14, 15},
        {0x80, FIELD(TOP), 0, 15},
        {0x100, FIELD(TOV), 0x1001, 0x1002},
        {0x100, FIELD(TOV), 0, 0x1FFF},
        {0x200, FIELD(TOT), 4, 5},
        {0x200, FIELD(TOT), 6, 5},
        {0x400, FIELD(TIP), 14, 15},
        {0x400, FIELD(TIP), 0, 15},
        {0x800, FIELD(TIV), 0x1001, 0x1002},
        {0x800, FIELD(TIV), 0, 0x1FFF},
        {0x1000, FIELD(TIT), 4, 5},
        {0x1000, FIELD(TIT), 6, 5},
        {0x2000, FIELD(TOP), 10, 9},
        {0x2000, FIELD(TOP), 10, 11},
        {0x2000, FIELD(TIP), 10, 9},
        {0x2000, FIELD(TIP), 10, 11},
    };
    unsigned int seen = 0;
    for (const FlagCase& edge : cases) {
        RecVlanTagFilData rule = filteringRule();
        edge.set(rule, edge.valueWith);
        EXPECT_EQ(nrvk::vlanRuleFlags(rule) & edge.flag, edge.flag) << edge.field << ' ' << edge.valueWith;
        edge.set(rule, edge.valueWithout);
        EXPECT_EQ(nrvk::vlanRuleFlags(rule) & edge.flag, 0U) << edge.field << ' ' << edge.valueWithout;
        seen |= edge.flag;
    }
    EXPECT_EQ(seen, 0x3FFFU);
}

TEST(VlanRuleFlags, FilterVidDoesNotCountWithoutATag)
{
    RecVlanTagFilData rule = bareRule();
    rule.FOV = 100;
    rule.FIV = 100;
    EXPECT_EQ(nrvk::vlanRuleFlags(rule), 0U);
}

TEST(VlanRuleFlags, UnsetFrameIsMarked)
{
    EXPECT_EQ(nrvk::vlanRuleFlags(vlanrows::unsetOf(bareRule())), 0x4000U | 0x200U | 0x1000U);
    RecVlanTagFilData almost = vlanrows::unsetOf(bareRule());
    almost.pad4 = 0xFFE;
    EXPECT_EQ(nrvk::vlanRuleFlags(almost) & 0x4000U, 0U);
}

TEST(VlanRuleClassification, ContainerTakesEveryFieldOfTheRule)
{
    RecVlanTagFilData rule{};
    rule.FOP = 1;
    rule.FOV = 0x1002;
    rule.FOT = 3;
    rule.FIP = 4;
    rule.FIV = 0x1005;
    rule.FIT = 6;
    rule.FET = 7;
    rule.TTR = 2;
    rule.TOP = 8;
    rule.TOV = 0x1009;
    rule.TOT = 1;
    rule.TIP = 9;
    rule.TIV = 0x100A;
    rule.TIT = 2;
    ExtendedVlanTaggingRuleContainer container{};
    nrvk::classifyVlanRule(rule, container);
    EXPECT_EQ(container.FOP, 1);
    EXPECT_EQ(container.FOV, 0x1002);
    EXPECT_EQ(container.FOT, 3);
    EXPECT_EQ(container.FIP, 4);
    EXPECT_EQ(container.FIV, 0x1005);
    EXPECT_EQ(container.FIT, 6);
    EXPECT_EQ(container.FET, 7);
    EXPECT_EQ(container.TTR, 2);
    EXPECT_EQ(container.TOP, 8);
    EXPECT_EQ(container.TOV, 0x1009);
    EXPECT_EQ(container.TOT, 1);
    EXPECT_EQ(container.TIP, 9);
    EXPECT_EQ(container.TIV, 0x100A);
    EXPECT_EQ(container.TIT, 2);
    EXPECT_EQ(container.frameTagCount, 2);
    EXPECT_EQ(container.tagAction, 6);
}

TEST(VlanRuleClassification, FlagsAreOnlyAdded)
{
    ExtendedVlanTaggingRuleContainer container{};
    container.ruleFlags = 0x80000000U;
    nrvk::classifyVlanRule(bareRule(), container);
    EXPECT_EQ(container.ruleFlags, 0x80000000U);
}

TEST(VlanRuleClassification, DscpMappingIsTextOf48CharactersWithABlankBeforeSmallBytes)
{
    unsigned char mapping[24] = {};
    mapping[0] = 0x0F;
    mapping[1] = 0x10;
    mapping[22] = 0xAB;
    mapping[23] = 0xFF;
    char text[49];
    std::memset(text, 'x', sizeof text);
    nrvk::dscpMappingText(mapping, text);
    std::string expected = " f10";
    for (int i = 2; i < 22; ++i) {
        expected += " 0";
    }
    EXPECT_EQ(std::string(text), expected + "abff");
}

}  // namespace
