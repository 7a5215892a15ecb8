// The table of received frames, and what each row does to the associated entity.
#include "ExtendedVlanTaggingTest.h"
#include "OmciMeIpHostConfigDataIf.h"

namespace {

TEST_F(ExtendedVlanTagging, FirstRuleOnAUniReplacesItsServiceAndTheSecondProvisionsOnly)
{
    associateWithUni();
    EXPECT_EQ(write(ruleA), 0);
    EXPECT_EQ(takeCalls(), replaced);
    EXPECT_EQ(write(ruleB), 0);
    EXPECT_EQ(takeCalls(), provisioned);
    EXPECT_EQ(write(ruleC), 0);
    EXPECT_EQ(takeCalls(), provisioned);
}

TEST_F(ExtendedVlanTagging, RowIsDecodedAndStoredBeforeTheUniIsProvisioned)
{
    associateWithUni();
    during = [this](const std::string&) {
        EXPECT_EQ(newest(), ruleA);
        ExtendedVlanTaggingRuleContainer container{};
        EXPECT_EQ(nrvk::parseReceivedFrameVlanTaggingOperationTable(entity(), &container), 1);
        EXPECT_EQ(container.FIV, 100);
    };
    EXPECT_EQ(write(ruleA), 0);
    EXPECT_EQ(takeCalls().size(), 2U);
}

TEST_F(ExtendedVlanTagging, UnsetFrameThatLeavesOneRuleReplacesTheServiceAgain)
{
    associateWithUni();
    write(ruleA);
    write(ruleB);
    takeCalls();
    log.clear();
    EXPECT_EQ(unset(ruleA), 0);
    EXPECT_EQ(takeCalls(), replaced);
    EXPECT_EQ(newest(), ruleB);
    EXPECT_TRUE(log.has(6, "Unset Frame has been arrived. No. of rules existing (2)"));
    EXPECT_TRUE(log.has(6, "Unset Frame has been arrived and Matched with the iterator (0) in TableOfReceivedFrames"));
    EXPECT_TRUE(log.has(6, "Unset Frame entry erased from the TableOfReceivedFrames"));
}

TEST_F(ExtendedVlanTagging, UnsetFrameForTheOnlyRuleProvisionsWithoutRemoval)
{
    associateWithUni();
    write(ruleA);
    takeCalls();
    EXPECT_EQ(unset(ruleA), 0);
    EXPECT_EQ(takeCalls(), provisioned);
    EXPECT_EQ(newest(), noRule());
    EXPECT_EQ(write(ruleB), 0);
    EXPECT_EQ(takeCalls(), replaced);
}

TEST_F(ExtendedVlanTagging, UnsetFrameMatchesOnTheFilterAlone)
{
    associateWithUni();
    RecVlanTagFilData padded = ruleA;
    padded.pad1 = 0xFFF;
    padded.pad2 = 0xFF;
    write(padded);
    write(ruleB);
    EXPECT_EQ(unset(ruleA), 0);
    EXPECT_EQ(unset(ruleB), 0);
    EXPECT_EQ(newest(), noRule());
}

TEST_F(ExtendedVlanTagging, UnsetFrameRemovesFirstRuleWithSameFilter)
{
    associateWithUni();
    RecVlanTagFilData second = ruleA;
    second.TIV = 999;
    write(ruleA);
    write(second);
    EXPECT_EQ(unset(ruleA), 0);
    EXPECT_EQ(newest(), second);
    EXPECT_EQ(unset(ruleA), 0);
    EXPECT_EQ(newest(), noRule());
}

TEST_F(ExtendedVlanTagging, UnsetFrameKeepsTheOrderOfTheOthers)
{
    associateWithUni();
    for (const auto& rule : {ruleA, ruleB, ruleC}) {
        write(rule);
    }
    unset(ruleB);
    EXPECT_TRUE(log.has(6, "Unset Frame has been arrived and Matched with the iterator (1) in TableOfReceivedFrames"));
    EXPECT_EQ(newest(), ruleC);
    unset(ruleC);
    EXPECT_EQ(newest(), ruleA);
}

TEST_F(ExtendedVlanTagging, UnsetFrameWithoutAMatchCountsAsNeverWritten)
{
    associateWithUni();
    write(ruleA);
    takeCalls();
    EXPECT_EQ(unset(ruleB), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_TRUE(log.has(3, "Got the unset frame entry but no match in the TableOfReceivedFrames"));
    EXPECT_EQ(storedRow(), std::vector<unsigned char>(16));
    EXPECT_EQ(newest(), ruleA);
    ExtendedVlanTaggingRuleContainer container{};
    EXPECT_EQ(nrvk::parseReceivedFrameVlanTaggingOperationTable(entity(), &container), 0);
}

TEST_F(ExtendedVlanTagging, UnsetFrameOnAnEmptyTableFindsNothing)
{
    associateWithUni();
    EXPECT_EQ(unset(ruleA), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_TRUE(log.has(6, "Unset Frame has been arrived. No. of rules existing (0)"));
}

TEST_F(ExtendedVlanTagging, MatchingUnsetFrameStaysInTheAttribute)
{
    associateWithUni();
    write(ruleA);
    unset(ruleA);
    const vlanrows::Row row = vlanrows::encode(vlanrows::unsetOf(ruleA));
    EXPECT_EQ(storedRow(), std::vector<unsigned char>(row.begin(), row.end()));
    ExtendedVlanTaggingRuleContainer container{};
    EXPECT_EQ(nrvk::parseReceivedFrameVlanTaggingOperationTable(entity(), &container), 1);
    EXPECT_EQ(container.ruleFlags & 0x4000U, 0x4000U);
}

TEST_F(ExtendedVlanTagging, AllZeroRowCountsAsARuleThatNobodyIsToldOf)
{
    associateWithUni();
    EXPECT_EQ(write(RecVlanTagFilData{}), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_EQ(newest(), RecVlanTagFilData{});
    EXPECT_EQ(write(ruleA), 0);
    EXPECT_EQ(takeCalls(), provisioned);
}

TEST_F(ExtendedVlanTagging, SameFilterAgainIsAFurtherRule)
{
    associateWithUni();
    write(ruleA);
    takeCalls();
    EXPECT_EQ(write(ruleA), 0);
    EXPECT_EQ(takeCalls(), provisioned);
    unset(ruleA);
    EXPECT_EQ(newest(), ruleA);
}

TEST_F(ExtendedVlanTagging, RuleCountWrapsAt256)
{
    associateWithUni();
    for (unsigned short rule = 1; rule <= 300; ++rule) {
        EXPECT_EQ(write(vlanrows::translation(rule, rule)), 0);
        const bool countIsOne = rule == 1 || rule == 257;
        EXPECT_EQ(takeCalls(), countIsOne ? replaced : provisioned) << rule;
        EXPECT_EQ(newest(), vlanrows::translation(rule, rule));
    }
    EXPECT_EQ(unset(vlanrows::translation(299, 0)), 0);
    EXPECT_TRUE(log.has(6, "Unset Frame has been arrived. No. of rules existing (44)"));
    EXPECT_TRUE(
        log.has(6, "Unset Frame has been arrived and Matched with the iterator (298) in TableOfReceivedFrames"));
}

TEST_F(ExtendedVlanTagging, RowOfABridgePortFollowsItsTpType)
{
    auto& port = bridgePort(2, 0, 7);
    associate(0, 2);
    for (unsigned int tpType = 0; tpType < 256; ++tpType) {
        port.setTpType(static_cast<unsigned char>(tpType));
        EXPECT_EQ(write(ruleA), 0);
        Calls expected;
        if (tpType == 4 || tpType == 1) {
            expected = {"removeBridgePortService(2)", "provisionBridgePort(2)"};
        } else if (tpType == 6) {
            expected = {"provisionBridgePort(2)"};
        }
        EXPECT_EQ(takeCalls(), expected) << tpType;
        EXPECT_EQ(newest(), ruleA);
    }
}

TEST_F(ExtendedVlanTagging, RowOfAnIpHostRebuildsThePortThatTheHardwareFinds)
{
    own<OmciMeIpHostConfigDataIf>(134, 3);
    associate(3, 3);
    EXPECT_EQ(write(ruleA), 0);
    EXPECT_EQ(takeCalls(), Calls{"findMacBridgePortByTp(4, 3)"});
    knownPorts[{4, 3}] = &bridgePort(8, 4, 3);
    EXPECT_EQ(write(ruleB), 0);
    EXPECT_EQ(takeCalls(),
              (Calls{"findMacBridgePortByTp(4, 3)", "removeBridgePortService(8)", "provisionBridgePort(8)"}));
}

TEST_F(ExtendedVlanTagging, MissingAssociatedEntityFailsTheSetAndTheRuleStays)
{
    for (const unsigned char type : {0, 2, 3}) {
        associate(type, 77);
        log.clear();
        const RecVlanTagFilData rule = vlanrows::translation(50, type);
        EXPECT_EQ(write(rule), -1);
        EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
        EXPECT_EQ(takeCalls(), Calls{});
        EXPECT_EQ(newest(), rule);
        const vlanrows::Row row = vlanrows::encode(rule);
        EXPECT_EQ(storedRow(), std::vector<unsigned char>(row.begin(), row.end()));
    }
}

TEST_F(ExtendedVlanTagging, OtherAssociationTypesTellNobody)
{
    bridgePort(2, 1, 2);
    ethernetUni(2);
    for (unsigned int type = 0; type < 256; ++type) {
        if (type == 0 || type == 2 || type == 3) {
            continue;
        }
        associate(static_cast<unsigned char>(type), 2);
        EXPECT_EQ(write(ruleA), 0);
        EXPECT_EQ(takeCalls(), Calls{}) << type;
    }
}

TEST_F(ExtendedVlanTagging, WithoutHardwareRowsStillEnterTheTable)
{
    associateWithUni();
    removeHardware();
    log.clear();
    EXPECT_EQ(write(ruleA), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
    EXPECT_EQ(newest(), ruleA);
}

TEST_F(ExtendedVlanTagging, DecodedRowIsLoggedInFourLines)
{
    associate(1, 0);
    RecVlanTagFilData rule = ruleA;
    rule.pad1 = 1;
    rule.pad2 = 2;
    rule.pad3 = 3;
    rule.pad4 = 4;
    rule.FET = 5;
    write(rule);
    EXPECT_TRUE(log.has(6, "ExtVLAN received frame after processing. FOP(15), FOV(4096), FOT(0), pad1(1)"));
    EXPECT_TRUE(log.has(6, "    FIP(8), FIV(100), FIT(0), pad2(2), FET(5)"));
    EXPECT_TRUE(log.has(6, "    TTR(1), pad3(3), TOP(15), TOV(0), TOT(0)"));
    EXPECT_TRUE(log.has(6, "    pad4(4), TIP(8), TIV(200), TIT(6)"));
}

TEST_F(ExtendedVlanTagging, EraseTakesTheServiceOfTheUniAndEmptiesTheTable)
{
    associateWithUni();
    write(ruleA);
    takeCalls();
    EXPECT_EQ(entity().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeUniService(257)"});
    EXPECT_EQ(newest(), noRule());
}

TEST_F(ExtendedVlanTagging, EraseWithoutTheUniFailsAndKeepsTheTable)
{
    associate(2, 77);
    write(ruleA);
    log.clear();
    EXPECT_EQ(entity().eraseConfigurationFromHardware(), -1);
    EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
    EXPECT_EQ(newest(), ruleA);
}

TEST_F(ExtendedVlanTagging, EraseOfOtherAssociationsEmptiesTheTableAlone)
{
    bridgePort(2, 1, 2);
    for (const unsigned char type : {0, 1, 3, 255}) {
        associate(type, 2);
        write(ruleA);
        takeCalls();
        EXPECT_EQ(entity().eraseConfigurationFromHardware(), 0);
        EXPECT_EQ(takeCalls(), Calls{});
        EXPECT_EQ(newest(), noRule());
    }
}

TEST_F(ExtendedVlanTagging, WithoutHardwareTheTableIsNotEmptied)
{
    associate(1, 0);
    write(ruleA);
    removeHardware();
    log.clear();
    EXPECT_FALSE(entity().deleteAllEntriesFromTableOfReceivedFrames());
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(entity().eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(newest(), ruleA);
}

TEST_F(ExtendedVlanTagging, TableIsEmptiedWithHardware)
{
    associate(1, 0);
    write(ruleA);
    EXPECT_TRUE(entity().deleteAllEntriesFromTableOfReceivedFrames());
    EXPECT_EQ(newest(), noRule());
}

TEST_F(ExtendedVlanTagging, DeleteOfAnEntryTellsWhetherThereWasOne)
{
    associate(1, 0);
    write(ruleA);
    EXPECT_EQ(entity().deleteEntryFromTableOfReceivedFrames(ruleB), 0);
    EXPECT_EQ(entity().deleteEntryFromTableOfReceivedFrames(ruleA), 1);
    EXPECT_EQ(entity().deleteEntryFromTableOfReceivedFrames(ruleA), 0);
}

}  // namespace
