// What the hardware layer asks for, and the attributes beside the table.
#include "ExtendedVlanTaggingTest.h"
#include "OmciManagedEntityRegistrar.h"

namespace {

using ::testing::_;
using ::testing::Return;

TEST_F(ExtendedVlanTagging, NewestRuleOfAnEmptyTableIsNotCopied)
{
    RecVlanTagFilData out = ruleA;
    nrvk::getRecVlanTagFilData(entity(), &out);
    EXPECT_EQ(out, ruleA);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(ExtendedVlanTagging, NewestRuleIsNotCopiedToNowhere)
{
    associate(1, 0);
    write(ruleA);
    nrvk::getRecVlanTagFilData(entity(), nullptr);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(ExtendedVlanTagging, ContainerTakesRuleAndAttributes)
{
    associate(1, 0);
    set(171, kEntity, 0x2000, 0x8100);
    set(171, kEntity, 0x1000, 0x88A8);
    set(171, kEntity, 0x800, 8);
    set(171, kEntity, 0x100, std::vector<unsigned char>(24, 0x9A));
    write(ruleA);
    ExtendedVlanTaggingRuleContainer container{};
    for (unsigned char& byte : container.hostData) {
        byte = 0x5A;
    }
    ASSERT_EQ(nrvk::parseReceivedFrameVlanTaggingOperationTable(entity(), &container), 1);
    EXPECT_EQ(container.inputTpid, 0x8100);
    EXPECT_EQ(container.outputTpid, 0x88A8);
    EXPECT_EQ(container.downstreamMode, 8);
    EXPECT_EQ(container.frameTagCount, 1);
    EXPECT_EQ(container.tagAction, 3);
    EXPECT_EQ(container.FOV, 4096);
    EXPECT_EQ(container.FIV, 100);
    EXPECT_EQ(container.TIV, 200);
    EXPECT_EQ(container.ruleFlags, 0x4U | 0x8U | 0x10U | 0x20U | 0x100U | 0x200U | 0x400U | 0x800U | 0x1000U);
    std::string text;
    for (int i = 0; i < 24; ++i) {
        text += "9a";
    }
    EXPECT_EQ(container.dscpToPbitMapping, text);
    for (const unsigned char byte : container.hostData) {
        EXPECT_EQ(byte, 0x5A);
    }
}

TEST_F(ExtendedVlanTagging, NothingIsClassifiedWithoutARowOrAContainer)
{
    ExtendedVlanTaggingRuleContainer container{};
    container.tagAction = 99;
    EXPECT_EQ(nrvk::parseReceivedFrameVlanTaggingOperationTable(entity(), &container), 0);
    EXPECT_EQ(container.tagAction, 99);
    EXPECT_EQ(log.count(3, "RecVlanTagFilData is NULL"), 1U);

    associate(1, 0);
    write(ruleA);
    EXPECT_EQ(nrvk::parseReceivedFrameVlanTaggingOperationTable(entity(), nullptr), 0);
    EXPECT_EQ(log.count(3, "RecVlanTagFilData is NULL"), 2U);

    write(RecVlanTagFilData{});
    EXPECT_EQ(nrvk::parseReceivedFrameVlanTaggingOperationTable(entity(), &container), 0);
    EXPECT_EQ(log.count(3, "RecVlanTagFilData is NULL"), 3U);
}

TEST_F(ExtendedVlanTagging, TableIsGivenOutInOrderOfArrivalBesideItsCountOf8Bits)
{
    associate(1, 0);
    EXPECT_EQ(nrvk::getTableOfReceivedFrames(entity()), std::vector<RecVlanTagFilData>{});
    EXPECT_EQ(nrvk::getRuleCount(entity()), 0);
    std::vector<RecVlanTagFilData> rules;
    for (unsigned short vid = 1; vid <= 257; ++vid) {
        rules.push_back(vlanrows::translation(vid, vid));
        write(rules.back());
    }
    EXPECT_EQ(nrvk::getTableOfReceivedFrames(entity()), rules);
    EXPECT_EQ(nrvk::getRuleCount(entity()), 1);
}

TEST_F(ExtendedVlanTagging, TableIsEmptiedFromOutsideWithHardwareOnly)
{
    associate(1, 0);
    write(ruleA);
    removeHardware();
    EXPECT_FALSE(nrvk::deleteAllEntriesFromTableOfReceivedFrames(entity()));
    EXPECT_EQ(nrvk::getRuleCount(entity()), 1);
    OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(&hardware);
    EXPECT_TRUE(nrvk::deleteAllEntriesFromTableOfReceivedFrames(entity()));
    EXPECT_EQ(nrvk::getRuleCount(entity()), 0);
}

TEST_F(ExtendedVlanTagging, EvcGoesToTheHardwareWithTheHostsRequestFlag)
{
    for (const bool request : {false, true}) {
        EXPECT_CALL(hardware, provisionEvcAndEvcMap("OMCI_200", 200, "OMCI_100_8", 100, 8, false, request))
            .WillOnce(Return(0x80000001U));
        EXPECT_EQ(nrvk::sendEvcAndEvcMapToTmb(entity(), ruleA, request), 0x80000001U);
    }
}

TEST_F(ExtendedVlanTagging, TaggedRuleWithoutAnInnerTagMakesNoEvc)
{
    EXPECT_CALL(hardware, provisionEvcAndEvcMap(_, _, _, _, _, _, _)).Times(0);
    RecVlanTagFilData rule = ruleA;
    rule.TIP = 15;
    EXPECT_EQ(nrvk::sendEvcAndEvcMapToTmb(entity(), rule, true), 0U);
}

TEST_F(ExtendedVlanTagging, EvcWithoutHardwareIsNone)
{
    removeHardware();
    EXPECT_EQ(nrvk::sendEvcAndEvcMapToTmb(entity(), ruleA, true), 0U);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
}

TEST_F(ExtendedVlanTagging, AssociatedPointerProvisionsABridgePortByTheNewValue)
{
    bridgePort(2, 1, 7);
    bridgePort(3, 4, 7);
    associate(0, 0);
    during = [](const std::string&) { EXPECT_EQ(getNumber(171, kEntity, 0x200), 2U); };
    EXPECT_EQ(set(171, kEntity, 0x200, 2), 0);
    EXPECT_TRUE(log.has(6, "Associated ME pointer(2)"));
    EXPECT_EQ(takeCalls(), Calls{"provisionBridgePort(2)"});
    EXPECT_EQ(set(171, kEntity, 0x200, 3), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(ExtendedVlanTagging, InputTpidProvisionsTheAssociatedBridgePort)
{
    auto& port = bridgePort(2, 0, 7);
    associate(0, 2);
    for (unsigned int tpType = 0; tpType < 256; ++tpType) {
        port.setTpType(static_cast<unsigned char>(tpType));
        EXPECT_EQ(set(171, kEntity, 0x2000, 0x8100), 0);
        EXPECT_EQ(takeCalls(), tpType == 4 ? Calls{} : Calls{"provisionBridgePort(2)"}) << tpType;
    }
    EXPECT_TRUE(log.has(6, "Input TPID(33024)"));
}

TEST_F(ExtendedVlanTagging, MissingBridgePortFailsPointerAndTpidAndTheValuesStay)
{
    associate(0, 0);
    log.clear();
    EXPECT_EQ(set(171, kEntity, 0x200, 77), -1);
    EXPECT_EQ(set(171, kEntity, 0x2000, 0x8100), -1);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 2U);
    EXPECT_EQ(getNumber(171, kEntity, 0x200), 77U);
    EXPECT_EQ(getNumber(171, kEntity, 0x2000), 0x8100U);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(ExtendedVlanTagging, PointerAndTpidOfOtherAssociationsOnlyStore)
{
    bridgePort(2, 1, 7);
    for (unsigned int type = 1; type < 256; ++type) {
        EXPECT_EQ(set(171, kEntity, 0x8000, type), 0);
        EXPECT_EQ(set(171, kEntity, 0x200, 2), 0);
        EXPECT_EQ(set(171, kEntity, 0x2000, 0x8100), 0);
        EXPECT_EQ(takeCalls(), Calls{}) << type;
    }
}

TEST_F(ExtendedVlanTagging, RemainingAttributesOnlyStore)
{
    bridgePort(2, 1, 7);
    associate(0, 2);
    EXPECT_EQ(set(171, kEntity, 0x1000, 0x88A8), 0);
    EXPECT_EQ(set(171, kEntity, 0x800, 1), 0);
    EXPECT_EQ(set(171, kEntity, 0x100, std::vector<unsigned char>(24, 1)), 0);
    EXPECT_EQ(adapter(171).applyConfigurationToHardwareForSet(kEntity), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

}  // namespace
