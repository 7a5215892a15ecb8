#include "DataPathTest.h"
#include "OmciMeDot1agCFMStackIf.h"
#include "OmciMeMacBridgePortFilterPreassignTableIf.h"
#include "OmciMeMacBridgePortIcmpV6ProcessPreassignTableIf.h"
#include "impl/OmciMeMacBridgePortBridgeTableDataImpl.h"
#include "impl/OmciMeMacBridgePortFilterTableDataImpl.h"
#include "implExtended/OmciMeMacBridgePortConfigurationDataImplExtended.h"
#include "implExtended/OmciMeMacBridgeServiceProfileImplExtended.h"

namespace {

using PreassignTable = OmciMeMacBridgePortFilterPreassignTableIf;
using IcmpV6Table = OmciMeMacBridgePortIcmpV6ProcessPreassignTableIf;
using Port = OmciMeMacBridgePortConfigurationDataIf;

class MacBridge : public DataPathTest
{};
class MacBridgePort : public DataPathTest
{};
class FilterPreassign : public DataPathTest
{};

TEST_F(MacBridge, BringsItsCfmStackAndTakesItAlong)
{
    ASSERT_EQ(create(45, 7), 0);
    const auto* stack = OmciMeDot1agCFMStackIf::getManagedEntityInstance(7);
    ASSERT_NE(stack, nullptr);
    EXPECT_TRUE(stack->isCreatedByOlt());
    EXPECT_EQ(adapter(45).deleteManagedEntityInstance(7, true), 0);
    EXPECT_EQ(OmciMeDot1agCFMStackIf::getManagedEntityInstance(7), nullptr);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(MacBridge, CompanionGoesAfterTheParentHasLeftItsMap)
{
    ASSERT_EQ(create(45, 7), 0);
    log.clear();
    ASSERT_EQ(adapter(45).deleteManagedEntityInstance(7, true), 0);
    // The stack's own line tells that its delete ran, and that it was there to delete.
    EXPECT_EQ(log.count(3, "Failed to delete instance(7)"), 0U);
    ASSERT_EQ(create(45, 7), 0);
    ASSERT_TRUE(OmciMeDot1agCFMStackIf::deleteManagedEntityInstance(7, true));
    ASSERT_EQ(adapter(45).deleteManagedEntityInstance(7, true), 0);
    EXPECT_TRUE(log.has(3, "Failed to delete instance(7)"));
}

TEST_F(MacBridge, ExistingBridgeDoesNotBringItsStackBack)
{
    ASSERT_EQ(create(45, 7), 0);
    ASSERT_TRUE(OmciMeDot1agCFMStackIf::deleteManagedEntityInstance(7, true));
    ASSERT_EQ(create(45, 7), 0);
    EXPECT_EQ(OmciMeDot1agCFMStackIf::getManagedEntityInstance(7), nullptr);
}

TEST_F(MacBridge, HooksAnswerWhetherTheCompanionWasThere)
{
    using Bridge = OmciMeMacBridgeServiceProfileImplExtended;
    EXPECT_EQ(Bridge::deleteOmciMeInstance(9), -1);
    EXPECT_TRUE(log.has(3, "Failed to delete instance(9)"));
    EXPECT_EQ(Bridge::createOmciMeInstance(9), 0);
    EXPECT_EQ(Bridge::deleteOmciMeInstance(9), 0);
}

TEST_F(MacBridge, SetHasNothingToApplyAndSucceeds)
{
    ASSERT_EQ(create(45, 1), 0);
    EXPECT_EQ(set(45, 1, 0x1000, 0x8000), 0);
    EXPECT_EQ(adapter(45).applyConfigurationToHardwareForSet(1), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(MacBridgePort, BringsItsPreassignTablesAndTakesThemAlong)
{
    ASSERT_EQ(create(47, 0xFFFF), 0);
    const auto* preassign = PreassignTable::getManagedEntityInstance(0xFFFF);
    const auto* icmp = IcmpV6Table::getManagedEntityInstance(0xFFFF);
    ASSERT_NE(preassign, nullptr);
    ASSERT_NE(icmp, nullptr);
    EXPECT_FALSE(preassign->isCreatedByOlt());
    EXPECT_FALSE(icmp->isCreatedByOlt());
    EXPECT_EQ(adapter(47).deleteManagedEntityInstance(0xFFFF, true), 0);
    EXPECT_EQ(PreassignTable::getManagedEntityInstance(0xFFFF), nullptr);
    EXPECT_EQ(IcmpV6Table::getManagedEntityInstance(0xFFFF), nullptr);
}

TEST_F(MacBridgePort, FirstMissingCompanionStopsTheDelete)
{
    using Bound = OmciMeMacBridgePortConfigurationDataImplExtended;
    ASSERT_EQ(Bound::createOmciMeInstance(5), 0);
    ASSERT_TRUE(PreassignTable::deleteManagedEntityInstance(5, false));
    EXPECT_EQ(Bound::deleteOmciMeInstance(5), -1);
    EXPECT_TRUE(log.has(3, "Failed to delete instance(5)"));
    EXPECT_NE(IcmpV6Table::getManagedEntityInstance(5), nullptr);
    EXPECT_TRUE(IcmpV6Table::deleteManagedEntityInstance(5, false));
}

TEST_F(MacBridgePort, CompanionsOfAResetGoWithTheOltsPorts)
{
    ASSERT_EQ(create(47, 3), 0);
    ASSERT_EQ(create(47, 4), 0);
    adapter(47).eraseAllManagedEntityInstances();
    EXPECT_EQ(Port::getFirstManagedEntityInstance(), nullptr);
    EXPECT_EQ(PreassignTable::getFirstManagedEntityInstance(), nullptr);
    EXPECT_EQ(IcmpV6Table::getFirstManagedEntityInstance(), nullptr);
}

TEST_F(MacBridgePort, TpPointerProvisionsOnceTheTpTypeIsKnown)
{
    ASSERT_EQ(create(47, 2), 0);
    EXPECT_EQ(set(47, 2, 0x1000, 0x101), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_EQ(getNumber(47, 2, 0x1000), 0x101U);

    EXPECT_EQ(set(47, 2, 0x2000, 1), 0);
    EXPECT_EQ(takeCalls(), Calls{});
    during = [this](const std::string&) { EXPECT_EQ(getNumber(47, 2, 0x1000), 0x102U); };
    EXPECT_EQ(set(47, 2, 0x1000, 0x102), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionBridgePort(2)"});
    EXPECT_EQ(set(47, 2, 0x1000, 0x102), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionBridgePort(2)"});
}

TEST_F(MacBridgePort, NoOtherAttributeProvisions)
{
    bridgePort(2, 3, 7);
    for (const unsigned short mask : {0x8000, 0x4000, 0x2000, 0x800, 0x400, 0x200, 0x100, 0x80, 0x20, 0x10, 0x8}) {
        EXPECT_EQ(set(47, 2, mask, 1), 0);
    }
    EXPECT_EQ(adapter(47).applyConfigurationToHardwareForSet(2), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(MacBridgePort, PortZeroIsNeverRemovedFromTheHardware)
{
    EXPECT_EQ(bridgePort(0, 1, 0x101).eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(MacBridgePort, GoesWithTheMapperBehindIt)
{
    ASSERT_EQ(create(130, 7), 0);
    EXPECT_EQ(bridgePort(2, 3, 7).eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), (Calls{"removeBridgePortService(2)", "removeMapperInterworkingTps(7, 65535)"}));
}

TEST_F(MacBridgePort, GoesWithTheUniBehindIt)
{
    ethernetUni(0x101);
    EXPECT_EQ(bridgePort(2, 1, 0x101).eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), (Calls{"removeBridgePortService(2)", "removeUniService(257)"}));
}

TEST_F(MacBridgePort, MissingMapperOrUniFailsAfterTheServiceHasGone)
{
    for (const unsigned char tpType : {3, 1}) {
        log.clear();
        EXPECT_EQ(bridgePort(2, tpType, 7).eraseConfigurationFromHardware(), -1);
        EXPECT_EQ(takeCalls(), Calls{"removeBridgePortService(2)"});
        EXPECT_TRUE(log.has(3, "Detected NULL pointer"));
    }
}

TEST_F(MacBridgePort, OtherTpTypesTakeNothingAlong)
{
    ASSERT_EQ(create(130, 7), 0);
    ethernetUni(7);
    Port& port = bridgePort(2, 0, 7);
    for (unsigned int tpType = 0; tpType < 256; ++tpType) {
        if (tpType != 1 && tpType != 3) {
            port.setTpType(static_cast<unsigned char>(tpType));
            EXPECT_EQ(port.eraseConfigurationFromHardware(), 0);
            EXPECT_EQ(takeCalls(), Calls{"removeBridgePortService(2)"}) << tpType;
        }
    }
}

TEST_F(MacBridgePort, DeleteOfTheOltErasesFirst)
{
    bridgePort(2, 5, 7);
    during = [](const std::string&) { EXPECT_NE(Port::getManagedEntityInstance(2), nullptr); };
    EXPECT_EQ(adapter(47).deleteManagedEntityInstance(2, true), 0);
    EXPECT_EQ(takeCalls(), Calls{"removeBridgePortService(2)"});
}

TEST_F(MacBridgePort, WithoutHardwareEachSkippedCallIsLogged)
{
    ASSERT_EQ(create(130, 7), 0);
    Port& port = bridgePort(2, 3, 7);
    removeHardware();
    log.clear();
    EXPECT_EQ(set(47, 2, 0x1000, 7), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 1U);
    EXPECT_EQ(port.eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(log.count(3, "Detected NULL pointer"), 3U);
}

TEST_F(FilterPreassign, BridgeManagementFilteringProvisionsThePortOfTheSameId)
{
    bridgePort(2, 3, 7);
    bridgePort(3, 3, 8);
    bridgePort(4, 3, 9);
    during = [](const std::string&) {
        EXPECT_EQ(PreassignTable::getManagedEntityInstance(3)->getBridgeMgmtInfoFiltering(OMCI_ACTION_GET), 1);
    };
    EXPECT_EQ(set(79, 3, 0x100, 1), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionBridgePort(3)"});
    EXPECT_EQ(set(79, 3, 0x100, 1), 0);
    EXPECT_EQ(takeCalls(), Calls{"provisionBridgePort(3)"});
}

TEST_F(FilterPreassign, TheOtherNineFiltersOnlyStore)
{
    bridgePort(3, 3, 8);
    for (const unsigned short mask : {0x8000, 0x4000, 0x2000, 0x1000, 0x800, 0x400, 0x200, 0x80, 0x40}) {
        EXPECT_EQ(set(79, 3, mask, 1), 0);
        EXPECT_EQ(getNumber(79, 3, mask), 1U);
    }
    EXPECT_EQ(adapter(79).applyConfigurationToHardwareForSet(3), 0);
    EXPECT_EQ(PreassignTable::getManagedEntityInstance(3)->eraseConfigurationFromHardware(), 0);
    EXPECT_EQ(takeCalls(), Calls{});
}

TEST_F(FilterPreassign, WithoutAPortTheSetFailsAndTheValueStays)
{
    bridgePort(2, 3, 7);
    auto& table = own<PreassignTable>(79, 9);
    EXPECT_EQ(set(79, 9, 0x100, 1), -1);
    EXPECT_TRUE(log.has(3, "MAC bridge port config data not found"));
    EXPECT_EQ(table.getBridgeMgmtInfoFiltering(OMCI_ACTION_GET), 1);
    EXPECT_EQ(takeCalls(), Calls{});
    EXPECT_TRUE(PreassignTable::deleteManagedEntityInstance(9, false));
}

/// The rows of a table, which no operation gives out.
struct BridgeTable : OmciMeMacBridgePortBridgeTableDataImpl
{
    using OmciMeMacBridgePortBridgeTableDataImpl::OmciMeMacBridgePortBridgeTableDataImpl;
    const auto& rows() const { return m_BridgeTable; }
};
struct FilterTable : OmciMeMacBridgePortFilterTableDataImpl
{
    using OmciMeMacBridgePortFilterTableDataImpl::OmciMeMacBridgePortFilterTableDataImpl;
    const auto& rows() const { return m_MacFilterTable; }
};

TEST_F(MacBridge, TableRowEndsAtItsFirstZeroByte)
{
    using Row = nrvk::TableRow<8>;
    const unsigned char cut[8] = {1, 2, 0, 4, 5, 6, 7, 8};
    const unsigned char whole[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    BridgeTable bridge(2, true);
    FilterTable filter(2, true);
    for (const unsigned char* row : {cut, whole}) {
        EXPECT_EQ(bridge.setBridgeTable(row), 0);
        EXPECT_EQ(filter.setMacFilterTable(row), 0);
    }
    const std::vector<Row> expected{{1, 2, 0, 0, 0, 0, 0, 0}, {1, 2, 3, 4, 5, 6, 7, 8}};
    EXPECT_EQ(bridge.rows(), expected);
    EXPECT_EQ(filter.rows(), expected);
    EXPECT_EQ(bridge.getBridgeTable(OMCI_ACTION_GET), 2U);
    EXPECT_EQ(filter.getMacFilterTable(OMCI_ACTION_GET), 2U);
}

}  // namespace
