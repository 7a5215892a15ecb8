#include "implExtended/EvcMapping.h"

#include <gtest/gtest.h>

#include "VlanRows.h"

namespace {

constexpr unsigned short kNone = 0xFFFF;

struct Expected
{
    bool isCalled;
    const char* evcName;
    unsigned short evcVlan;
    unsigned short matchVlan;
};

/// FIV is 11, TOV 22 and TIV 33 throughout.
Expected expectedFor(unsigned int fop, unsigned int fip, unsigned int top, unsigned int tip)
{
    if (fop == 15 && fip == 15) {
        return top == 15 && tip == 15 ? Expected{true, "OMCI_22", kNone, kNone} : Expected{true, "OMCI_33", 33, kNone};
    }
    if (tip == 15) {
        return {false, "", 0, 0};
    }
    return top != 15 ? Expected{true, "OMCI_22", 22, kNone} : Expected{true, "OMCI_33", 33, 11};
}

TEST(EvcMapping, EveryCombinationOfPrioritiesFollowsTheTable)
{
    for (unsigned int input = 0; input < 0x10000; ++input) {
        RecVlanTagFilData rule{};
        rule.FOP = static_cast<unsigned char>(input >> 12);
        rule.FIP = static_cast<unsigned char>(input >> 8 & 15U);
        rule.TOP = static_cast<unsigned char>(input >> 4 & 15U);
        rule.TIP = static_cast<unsigned char>(input & 15U);
        rule.FIV = 11;
        rule.TOV = 22;
        rule.TIV = 33;
        const Expected expected = expectedFor(rule.FOP, rule.FIP, rule.TOP, rule.TIP);
        const auto evc = nrvk::evcAndEvcMapOf(rule);
        ASSERT_EQ(evc.has_value(), expected.isCalled) << rule;
        if (evc) {
            ASSERT_EQ(evc->evcName, expected.evcName) << rule;
            ASSERT_EQ(evc->evcVlan, expected.evcVlan) << rule;
            ASSERT_EQ(evc->matchVlan, expected.matchVlan) << rule;
            ASSERT_EQ(evc->evcMapName, "OMCI_11_" + std::to_string(rule.FIP)) << rule;
            ASSERT_EQ(evc->priority, rule.FIP) << rule;
        }
    }
}

TEST(EvcMapping, SingleTaggedTranslationMatchesOnTheReceivedVlan)
{
    RecVlanTagFilData rule{};
    rule.FOP = 15;
    rule.FIP = 3;
    rule.FIV = 100;
    rule.TTR = 1;
    rule.TOP = 15;
    rule.TIP = 4;
    rule.TIV = 200;
    const auto evc = nrvk::evcAndEvcMapOf(rule);
    ASSERT_TRUE(evc);
    EXPECT_EQ(evc->evcName, "OMCI_200");
    EXPECT_EQ(evc->evcVlan, 200);
    EXPECT_EQ(evc->evcMapName, "OMCI_100_3");
    EXPECT_EQ(evc->matchVlan, 100);
    EXPECT_EQ(evc->priority, 3);
    EXPECT_FALSE(evc->noTagRemoved);
}

TEST(EvcMapping, NoTagRemovedHoldsForTreatmentZeroAlone)
{
    for (unsigned char tagsToRemove = 0; tagsToRemove < 4; ++tagsToRemove) {
        RecVlanTagFilData rule = vlanrows::translation(100, 200);
        rule.TTR = tagsToRemove;
        EXPECT_EQ(nrvk::evcAndEvcMapOf(rule)->noTagRemoved, tagsToRemove == 0);
    }
}

TEST(EvcMapping, NamesOfLargestVidsAndPriorityFit)
{
    RecVlanTagFilData rule{};
    rule.FOP = 15;
    rule.FIP = 15;
    rule.FIV = 8191;
    rule.TOP = 15;
    rule.TIP = 15;
    rule.TOV = 8191;
    const auto evc = nrvk::evcAndEvcMapOf(rule);
    EXPECT_EQ(evc->evcName, "OMCI_8191");
    EXPECT_EQ(evc->evcMapName, "OMCI_8191_15");
}

}  // namespace
